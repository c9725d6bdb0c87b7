// The program's alerts: what each shows and what each hands back.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include <WindowTester.h>

#include "AlertScript.h"
#include "Contact.h"
#include "GenericAlerts.h"

using BPrivate::AlertInfo;
using BPrivate::WindowTester;

using Buttons = std::vector<std::string>;

namespace {

// An alert shown by show, answered with the button pressed.
struct AlertCase {
	std::function<int32()> show;
	int32 pressed;
	int32 result;
	const char* title;
	std::string text;
	Buttons buttons;
	alert_type type = B_INFO_ALERT;
};

int32
SanityChecked(uint32 typed)
{
	RunSanityCheckOnNewType(&typed);
	return int32(typed);
}

}	// namespace

TEST(GenericAlertsTest, EachAlertShowsItsTextAndButtonsAndHandsBackTheAnswer)
{
	String before("old words");
	String after("new words");
	const std::string longPath(2000, 'p');
	const std::vector<AlertCase> cases = {
		{[] { return ShowError("Unable to change path of %s to %s", "notes", "/nowhere/notes"); },
			0, 0, "", "Unable to change path of notes to /nowhere/notes", {"Too bad"},
			B_WARNING_ALERT},
		{[] { return FailureAlert("Writing \"size\""); }, 0, 0, "FailureAlert",
			"\n\nThe operation did not succeed:\n\n   Writing \"size\"", {"Too Bad"}},
		{[&] { return FailureAlert(longPath.c_str()); }, 0, 0, "FailureAlert",
			"\n\nThe operation did not succeed:\n\n   " + longPath, {"Too Bad"}},
		{[] { return NotYetImplementedAlert(nullptr, "Undo"); }, 0, 0, "NotYetImplementedAlert",
			std::string("\n\nUndo has not yet been implemented.\n\n\nWe all need feedback "
			"to make good software, so please write and let me know if this feature is "
			"important to you.\n\n\nYours for ever better software,\n\n") + kAuthorName + "\n"
			+ kAuthorMail, {"OK"}},
		{[] { return int32(OKToChange("name", "notes", "letters")); }, 1, 1, "Changed",
			"Change the name of \n   notes to \n   \"letters\"?", {"Cancel", "OK"}},
		{[] { return int32(OKToChange("size", "notes", "2,000")); }, 0, 0, "Changed",
			"Change the size of \n   notes to \n   \"2,000\"?", {"Cancel", "OK"}},
		{[&] { return OKToChange(before, after); }, 1, 1, "Changed",
			"Change old words to \n   new words?", {"Cancel", "Discard", "OK"}},
		{[&] { return OKToChange(before, after); }, 2, 2, "Changed",
			"Change old words to \n   new words?", {"Cancel", "Discard", "OK"}},
		{[] { return int32(OKToAdd("x", 'LONG', 1234)); }, 1, 1, "AddAttr",
			"Add attribute x (LONG, 1,234 bytes)?", {"Cancel", "Add"}},
		{[] { return int32(OKToAdd("comment", 'CSTR', 1234567)); }, 0, 0, "AddAttr",
			"Add attribute comment (CSTR, 1,234,567 bytes)?", {"Cancel", "Add"}},
		{[] { return SanityChecked('cstr'); }, 1, int32('CSTR'), "Clarification",
			"Do you mean 'CSTR'?", {"No", "Yes"}},
		{[] { return SanityChecked('Cstr'); }, 0, int32('Cstr'), "Clarification",
			"Do you mean 'CSTR'?", {"No", "Yes"}},
	};
	WindowTester::RunHeadless([&] {
		for (const AlertCase& test : cases) {
			AlertScript script({test.pressed});
			int32 beeps = WindowTester::CountBeeps();
			EXPECT_EQ(test.result, test.show()) << test.text;
			EXPECT_EQ(beeps + (test.type == B_WARNING_ALERT ? 1 : 0), WindowTester::CountBeeps())
				<< "only the error beeps";
			ASSERT_EQ(1u, script.Seen().size()) << test.text;
			const AlertInfo& alert = script.Seen()[0];
			EXPECT_EQ(test.title, alert.title);
			EXPECT_EQ(test.text, alert.text);
			EXPECT_EQ(test.buttons, alert.buttons) << test.text;
			EXPECT_EQ(test.type, alert.type) << test.text;
		}
	});
}

TEST(GenericAlertsTest, EmptyValuesAndExactOrUnknownCodesAskNothing)
{
	WindowTester::RunHeadless([] {
		AlertScript script({2, 2, 1, 1});
		String empty;
		String text("words");
		EXPECT_EQ(0, OKToChange(empty, text));
		EXPECT_EQ(0, OKToChange(text, empty));
		EXPECT_EQ(int32('CSTR'), SanityChecked('CSTR'));
		EXPECT_EQ(int32('abcd'), SanityChecked('abcd'));
		EXPECT_TRUE(script.Seen().empty());
	});
}
