#include "GenericAlerts.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include <Alert.h>
#include <InterfaceDefs.h>

#include "AttrTypes.h"
#include "Contact.h"
#include "Formatting.h"

namespace {

// The whole formatted text, however long the caller's words are.
std::string
FormatText(const char* format, va_list args)
{
	va_list copy;
	va_copy(copy, args);
	int length = vsnprintf(nullptr, 0, format, copy);
	va_end(copy);
	if (length <= 0)
		return std::string();

	std::string text(static_cast<size_t>(length) + 1, '\0');
	vsnprintf(text.data(), text.size(), format, args);
	text.resize(static_cast<size_t>(length));
	return text;
}

std::string
FormatText(const char* format, ...) __attribute__((format(printf, 1, 2)));

std::string
FormatText(const char* format, ...)
{
	va_list args;
	va_start(args, format);
	std::string text = FormatText(format, args);
	va_end(args);
	return text;
}

int32
RunAlert(const char* title, const std::string& text, const char* button0,
	const char* button1, const char* button2, alert_type type)
{
	BAlert* alert = new BAlert(title, text.c_str(), button0, button1, button2,
		B_WIDTH_AS_USUAL, type);
	return alert->Go();
}

}	// namespace

int32
ShowError(const char* format, ...)
{
	va_list args;
	va_start(args, format);
	std::string text = FormatText(format, args);
	va_end(args);

	beep();
	return RunAlert("", text, "Too bad", NULL, NULL, B_WARNING_ALERT);
}

int32
FailureAlert(const char* what)
{
	return RunAlert("FailureAlert",
		FormatText("\n\nThe operation did not succeed:\n\n   %s", what),
		"Too Bad", NULL, NULL, B_INFO_ALERT);
}

bool
OKToChange(const char* property, const char* nodeName, const char* newValue)
{
	std::string text = FormatText("Change the %s of \n   %s to \n   \"%s\"?", property,
		nodeName, newValue);
	return RunAlert("Changed", text, "Cancel", "OK", NULL, B_INFO_ALERT) == 1;
}

int32
OKToChange(String& oldText, String& newText)
{
	if (oldText.Length() == 0 || newText.Length() == 0)
		return 0;

	std::string text = FormatText("Change %s to \n   %s?", static_cast<const char*>(oldText),
		static_cast<const char*>(newText));
	return RunAlert("Changed", text, "Cancel", "Discard", "OK", B_INFO_ALERT);
}

bool
OKToAdd(const char* name, uint32 type, int32 size)
{
	std::string text = FormatText("Add attribute %s (%s, %s bytes)?", name,
		static_cast<const char*>(ASCII(type)), static_cast<const char*>(LongNumStr(size)));
	return RunAlert("AddAttr", text, "Cancel", "Add", NULL, B_INFO_ALERT) == 1;
}

int32
NotYetImplementedAlert(BMessage*, const char* feature)
{
	std::string text = FormatText("\n\n%s has not yet been implemented.\n\n\n"
		"We all need feedback to make good software, so please write and let me know "
		"if this feature is important to you.\n\n\n"
		"Yours for ever better software,\n\n%s\n%s", feature, kAuthorName, kAuthorMail);
	return RunAlert("NotYetImplementedAlert", text, "OK", NULL, NULL, B_INFO_ALERT);
}

void
RunSanityCheckOnNewType(uint32* type)
{
	uint32 known = SuggestedTypeFor(*type);
	if (known == *type)
		return;

	std::string text = FormatText("Do you mean '%s'?", static_cast<const char*>(ASCII(known)));
	if (RunAlert("Clarification", text, "No", "Yes", NULL, B_INFO_ALERT) > 0)
		*type = known;
}
