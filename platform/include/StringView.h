#ifndef _STRING_VIEW_H
#define _STRING_VIEW_H

#include <string>

#include <View.h>

// One line of text, aligned left, right or centred in the view.
class BStringView : public BView {
public:
	BStringView(BRect frame, const char* name, const char* text,
		uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP, uint32 flags = B_WILL_DRAW);
	virtual ~BStringView();

	virtual void AttachedToWindow();
	virtual void Draw(BRect updateRect);
	virtual void GetPreferredSize(float* width, float* height);
	void SetText(const char* text);
	const char* Text() const;
	void SetAlignment(alignment flag);
	alignment Alignment() const { return fAlignment; }

private:
	std::string fText;
	alignment fAlignment = B_ALIGN_LEFT;
};

#endif
