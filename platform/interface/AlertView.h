#ifndef _ALERT_VIEW_H
#define _ALERT_VIEW_H

#include <string>
#include <vector>

#include <Alert.h>
#include <View.h>

namespace BPrivate {

// The body of an alert: the icon stripe with the icon of the alert's kind on
// the left and the text, wrapped to the width it is given.
class AlertView : public BView {
public:
	AlertView(BRect frame, alert_type type, const char* text);

	virtual void Draw(BRect updateRect);

	const char* Text() const { return fText.c_str(); }
	// Where the text starts, and the height it needs at textWidth.
	float TextLeft() const;
	float TextHeight(float textWidth);
	static float IconBottom();

	// The lines of text, wrapped at newlines and, between words (within a word
	// when it alone is too wide), at width.
	static std::vector<std::string> Wrap(const std::string& text, float width,
		const BFont& font);

private:
	void pvDrawIcon(BRect rect);

	alert_type fType;
	std::string fText;
	std::vector<std::string> fLines;
};

}

#endif
