// The program's alerts: what each shows and what each hands back.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <WindowTester.h>

#include "AlertScript.h"
#include "Contact.h"
#include "GenericAlerts.h"

using BPrivate::AlertInfo;
using BPrivate::WindowTester;

using Buttons = std::vector<std::string>;

TEST(GenericAlertsTest, ShowErrorBeepsAndFormatsTheCallersText)
{
	WindowTester::RunHeadless([] {
		AlertScript script({0});
		int32 beeps = WindowTester::CountBeeps();
		EXPECT_EQ(0, ShowError("Unable to change path of %s to %s", "notes", "/nowhere/notes"));
		EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());

		ASSERT_EQ(1u, script.Seen().size());
		const AlertInfo& alert = script.Seen()[0];
		EXPECT_EQ("", alert.title);
		EXPECT_EQ("Unable to change path of notes to /nowhere/notes", alert.text);
		EXPECT_EQ(Buttons{"Too bad"}, alert.buttons);
		EXPECT_EQ(B_WARNING_ALERT, alert.type);
	});
}

TEST(GenericAlertsTest, FailureAlertAndNotYetImplemented)
{
	WindowTester::RunHeadless([] {
		AlertScript script({0, 0});
		int32 beeps = WindowTester::CountBeeps();
		EXPECT_EQ(0, FailureAlert("Writing \"size\""));
		EXPECT_EQ(0, NotYetImplementedAlert(nullptr, "Undo"));
		EXPECT_EQ(beeps, WindowTester::CountBeeps());

		ASSERT_EQ(2u, script.Seen().size());
		const AlertInfo& failure = script.Seen()[0];
		EXPECT_EQ("FailureAlert", failure.title);
		EXPECT_EQ("\n\nThe operation did not succeed:\n\n   Writing \"size\"", failure.text);
		EXPECT_EQ(Buttons{"Too Bad"}, failure.buttons);
		EXPECT_EQ(B_INFO_ALERT, failure.type);

		const AlertInfo& later = script.Seen()[1];
		EXPECT_EQ("NotYetImplementedAlert", later.title);
		EXPECT_EQ(std::string("\n\nUndo has not yet been implemented.\n\n\nWe all need feedback "
			"to make good software, so please write and let me know if this feature is "
			"important to you.\n\n\nYours for ever better software,\n\n") + kAuthorName + "\n"
			+ kAuthorMail, later.text);
		EXPECT_EQ(Buttons{"OK"}, later.buttons);
		EXPECT_EQ(B_INFO_ALERT, later.type);
	});
}

TEST(GenericAlertsTest, ChangeOfAPropertyIsTrueOnlyForOK)
{
	WindowTester::RunHeadless([] {
		AlertScript script({1, 0});
		EXPECT_TRUE(OKToChange("name", "notes", "letters"));
		EXPECT_FALSE(OKToChange("size", "notes", "2,000"));

		ASSERT_EQ(2u, script.Seen().size());
		const AlertInfo& alert = script.Seen()[0];
		EXPECT_EQ("Changed", alert.title);
		EXPECT_EQ("Change the name of \n   notes to \n   \"letters\"?", alert.text);
		EXPECT_EQ((Buttons{"Cancel", "OK"}), alert.buttons);
		EXPECT_EQ(B_INFO_ALERT, alert.type);
		EXPECT_EQ("Change the size of \n   notes to \n   \"2,000\"?", script.Seen()[1].text);
	});
}

TEST(GenericAlertsTest, ChangeOfAValueHandsBackTheButton)
{
	WindowTester::RunHeadless([] {
		AlertScript script({0, 1, 2});
		String before("old words");
		String after("new words");
		EXPECT_EQ(0, OKToChange(before, after));
		EXPECT_EQ(1, OKToChange(before, after));
		EXPECT_EQ(2, OKToChange(before, after));

		ASSERT_EQ(3u, script.Seen().size());
		const AlertInfo& alert = script.Seen()[0];
		EXPECT_EQ("Changed", alert.title);
		EXPECT_EQ("Change old words to \n   new words?", alert.text);
		EXPECT_EQ((Buttons{"Cancel", "Discard", "OK"}), alert.buttons);
		EXPECT_EQ(B_INFO_ALERT, alert.type);
	});
}

TEST(GenericAlertsTest, ChangeOfAnEmptyValueIsCancelledWithoutAsking)
{
	WindowTester::RunHeadless([] {
		AlertScript script({2, 2});
		String empty;
		String text("words");
		EXPECT_EQ(0, OKToChange(empty, text));
		EXPECT_EQ(0, OKToChange(text, empty));
		EXPECT_TRUE(script.Seen().empty());
	});
}

TEST(GenericAlertsTest, AddingNamesTypeAndPunctuatedSize)
{
	WindowTester::RunHeadless([] {
		AlertScript script({1, 0});
		EXPECT_TRUE(OKToAdd("x", 'LONG', 1234));
		EXPECT_FALSE(OKToAdd("comment", 'CSTR', 1234567));

		ASSERT_EQ(2u, script.Seen().size());
		const AlertInfo& alert = script.Seen()[0];
		EXPECT_EQ("AddAttr", alert.title);
		EXPECT_EQ("Add attribute x (LONG, 1,234 bytes)?", alert.text);
		EXPECT_EQ((Buttons{"Cancel", "Add"}), alert.buttons);
		EXPECT_EQ(B_INFO_ALERT, alert.type);
		EXPECT_EQ("Add attribute comment (CSTR, 1,234,567 bytes)?", script.Seen()[1].text);
	});
}

TEST(GenericAlertsTest, TypedCodeInOtherCaseIsOfferedItsKnownSpelling)
{
	WindowTester::RunHeadless([] {
		AlertScript script({1, 0});
		uint32 accepted = 'cstr';
		RunSanityCheckOnNewType(&accepted);
		EXPECT_EQ(uint32('CSTR'), accepted);
		uint32 kept = 'Cstr';
		RunSanityCheckOnNewType(&kept);
		EXPECT_EQ(uint32('Cstr'), kept);

		ASSERT_EQ(2u, script.Seen().size());
		const AlertInfo& alert = script.Seen()[0];
		EXPECT_EQ("Clarification", alert.title);
		EXPECT_EQ("Do you mean 'CSTR'?", alert.text);
		EXPECT_EQ((Buttons{"No", "Yes"}), alert.buttons);
		EXPECT_EQ(B_INFO_ALERT, alert.type);
		EXPECT_EQ("Do you mean 'CSTR'?", script.Seen()[1].text);
	});
}

TEST(GenericAlertsTest, ExactAndUnknownCodesPassSilently)
{
	WindowTester::RunHeadless([] {
		AlertScript script({1, 1});
		uint32 exact = 'CSTR';
		RunSanityCheckOnNewType(&exact);
		EXPECT_EQ(uint32('CSTR'), exact);
		uint32 unknown = 'abcd';
		RunSanityCheckOnNewType(&unknown);
		EXPECT_EQ(uint32('abcd'), unknown);
		EXPECT_TRUE(script.Seen().empty());
	});
}

TEST(GenericAlertsTest, LongWordsAreShownWhole)
{
	WindowTester::RunHeadless([] {
		AlertScript script({0});
		std::string path(2000, 'p');
		FailureAlert(path.c_str());
		ASSERT_EQ(1u, script.Seen().size());
		EXPECT_EQ("\n\nThe operation did not succeed:\n\n   " + path, script.Seen()[0].text);
	});
}
