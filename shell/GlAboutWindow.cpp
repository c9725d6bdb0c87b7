#include "GlAboutWindow.h"

#include <cstdio>
#include <cstring>

#include <AppFileInfo.h>
#include <Application.h>
#include <Box.h>
#include <Entry.h>
#include <File.h>
#include <Font.h>
#include <String.h>

#include "AboutIconView.h"
#include "AboutTextView.h"
#include "BrindleUtils.h"
#include "Contact.h"

namespace {

const char kTitle[] = "About Vellum";
const char kProgramLine[] = "Vellum\n";
const float kProgramLineSize = 36;
const uint32 kDropMessage = 'DATA';
const float kMargin = 10;
const float kIconSize = 32;

// The short version string of the running program's file.
BString
ProgramVersion()
{
	app_info info;
	version_info version;
	if (be_app->GetAppInfo(&info) == B_OK) {
		BFile file(&info.ref, B_READ_ONLY);
		BAppFileInfo fileInfo(&file);
		if (fileInfo.GetVersionInfo(&version, B_APP_VERSION_KIND) == B_OK)
			return BString(version.short_info);
	}
	return BString(VELLUM_VERSION);
}

// When the running program's file was built (last modified).
time_t
ProgramBuildTime()
{
	app_info info;
	time_t built = 0;
	if (be_app->GetAppInfo(&info) == B_OK)
		BEntry(&info.ref).GetModificationTime(&built);
	return built;
}

}	// namespace

GlAboutWindow::GlAboutWindow(BRect frame)
	: BWindow(frame, kTitle, B_TITLED_WINDOW, B_NOT_ZOOMABLE | B_NOT_RESIZABLE)
{
	BView* background = new BView(Bounds(), "Background", B_FOLLOW_ALL, B_WILL_DRAW);
	background->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	AddChild(background);

	BBox* box = new BBox(background->Bounds().InsetByCopy(4, 4), "DecorativeBox",
		B_FOLLOW_ALL);
	background->AddChild(box);

	BView* interior = new BView(box->Bounds().InsetByCopy(3, 3), "BoxInterior",
		B_FOLLOW_ALL, B_WILL_DRAW);
	interior->SetViewColor(255, 255, 255);
	box->AddChild(interior);

	BRect bounds = interior->Bounds();
	BRect iconFrame(kMargin, kMargin, kMargin + kIconSize - 1, kMargin + kIconSize - 1);
	AboutIconView* icon = new AboutIconView(iconFrame, "Icon", B_FOLLOW_LEFT | B_FOLLOW_TOP,
		B_WILL_DRAW);
	interior->AddChild(icon);
	icon->SetViewColor(interior->ViewColor());
	icon->SetNode(be_app);

	// The text takes the rest of the interior, so that a click almost anywhere
	// lands on the icon or the text.
	BRect textFrame(iconFrame.right + 1, 0, bounds.right, bounds.bottom);
	BRect textRect = textFrame.OffsetToCopy(0, 0).InsetByCopy(kMargin, kMargin);
	AboutTextView* titles = new AboutTextView(textFrame, "Titles", textRect, B_FOLLOW_ALL,
		B_WILL_DRAW);
	titles->SetViewColor(interior->ViewColor());
	interior->AddChild(titles);
	titles->MakeEditable(false);
	titles->MakeSelectable(false);
	titles->SetStylable(true);
	try {
		pvFillText(titles);
	} catch (...) {
		fprintf(stderr, "Oh-oh\n");
	}
}

void
GlAboutWindow::pvFillText(BTextView* titles)
{
	char date[64];
	BString text(kProgramLine);
	text << ProgramVersion() << " (x86)\n\n"
		<< kAuthorName << "\n" << kAuthorMail << "\n"
		<< DateString(date, ProgramBuildTime()) << "\n\n"
		<< kMakerName << "\n" << kMakerPhone << "\n" << kMakerSlogan;
	titles->Insert(text.String());

	BFont programFont;
	titles->GetFont(&programFont);
	programFont.SetSize(kProgramLineSize);
	titles->SetFontAndColor(0, int32(strlen(kProgramLine)), &programFont, B_FONT_SIZE);
}

void
GlAboutWindow::KeyDown(const char*, int32)
{
	PostMessage(B_QUIT_REQUESTED);
}

void
GlAboutWindow::MessageReceived(BMessage* msg)
{
	switch (msg->what) {
		case kDropMessage:
			// The application opens the dropped nodes.
			be_app->PostMessage(msg);
			PostMessage(B_QUIT_REQUESTED);
			break;
		case B_KEY_DOWN: {
			const char* bytes = "";
			msg->FindString("bytes", &bytes);
			KeyDown(bytes, int32(strlen(bytes)));
			break;
		}
		case B_MOUSE_DOWN:
			PostMessage(B_QUIT_REQUESTED);
			break;
		default:
			BWindow::MessageReceived(msg);
			break;
	}
}
