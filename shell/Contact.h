#ifndef CONTACT_H
#define CONTACT_H

// Who makes Vellum and how to reach them, as the about box and the alerts say it.
inline constexpr char kAuthorName[] = "The Vellum team";
inline constexpr char kAuthorMail[] = "vellum-team@vellum-project.example.org";
inline constexpr char kMakerName[] = "Brindle Vellum Project";
inline constexpr char kMakerPhone[] = "No telephone: write to us, we answer";
inline constexpr char kMakerSlogan[] = "Every node has a story.";

#endif
