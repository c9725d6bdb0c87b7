// Edits of the inspected node from the fields of the info panel: each one
// confirmed, cancelled and refused, answered through the alert responder.

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

#include <string>
#include <vector>

#include <Application.h>
#include <Control.h>
#include <Entry.h>
#include <Message.h>
#include <Messenger.h>
#include <TextControl.h>
#include <Window.h>
#include <WindowTester.h>

#include "BrindleFile.h"
#include "Formatting.h"
#include "GlintView.h"
#include "InspectorTestSupport.h"
#include "StatusError.h"
#include "app/AlertScript.h"
#include "platform/storage/TempFolder.h"

using BPrivate::AlertInfo;

namespace {

using Texts = std::vector<std::string>;

const time_t kOldDate = 1000000000;
const time_t kNewDate = 1100000000;

std::string
Confirmation(const std::string& property, const std::string& name, const std::string& value)
{
	return "Change the " + property + " of \n   " + name + " to \n   \"" + value + "\"?";
}

off_t
SizeOf(const std::string& path)
{
	struct stat st;
	return lstat(path.c_str(), &st) == 0 ? st.st_size : -1;
}

time_t
DateOf(const std::string& path)
{
	struct stat st;
	return lstat(path.c_str(), &st) == 0 ? st.st_mtime : -1;
}

std::string
LinkTarget(const std::string& path)
{
	char buffer[1024];
	ssize_t length = readlink(path.c_str(), buffer, sizeof(buffer));
	return length >= 0 ? std::string(buffer, static_cast<size_t>(length)) : std::string();
}

bool
Exists(const std::string& path)
{
	return access(path.c_str(), F_OK) == 0;
}

// Makes leaf in folder a symbolic link to target; returns the link's path.
std::string
SymbolicLink(const TempFolder& folder, const std::string& leaf, const std::string& target)
{
	std::string link = folder.Path(leaf);
	EXPECT_EQ(0, symlink(target.c_str(), link.c_str())) << link;
	return link;
}

// An inspector window showing one node, with its info panel.
class Panel {
public:
	explicit Panel(const std::string& path)
		: fWindow(ShowInspector()),
		  fTester(fWindow)
	{
		fWindow->Lock();
		fView = dynamic_cast<GlintView*>(fWindow->FindView("GlintView"));
		fWindow->Unlock();
		EXPECT_NE(nullptr, fView);
		DropOnInspector(fWindow, {path});
	}

	GlintView* View() const { return fView; }
	BWindow* Window() const { return fWindow; }

	void Send(BMessage message)
	{
		BMessenger(fView).SendMessage(&message);
		EXPECT_EQ(B_OK, fTester.WaitForIdle());
	}

	// The field sends its text, as after the user typed it and pressed Enter.
	void Commit(const char* field, const std::string& text)
	{
		BControl* control = SetField(field, text);
		BMessage changed('Chgd');
		changed.AddPointer("source", control);
		changed.AddInt32("be:value", 0);
		Send(changed);
	}

	BControl* SetField(const char* field, const std::string& text)
	{
		fWindow->Lock();
		BTextControl* control = dynamic_cast<BTextControl*>(fWindow->FindView(field));
		EXPECT_NE(nullptr, control) << field;
		if (control != nullptr)
			control->SetText(text.c_str());
		fWindow->Unlock();
		return control;
	}

	std::string Field(const char* field) { return FieldText(fWindow, field); }

	// Committing what the field already shows asks nothing.
	void CommitUnchanged(const char* field, const std::string& text)
	{
		AlertScript script;
		Commit(field, text);
		EXPECT_TRUE(script.Seen().empty()) << field;
	}

	// Commits text and cancels the question, which names the property, the
	// node and text; the field shows shown afterwards.
	void CommitCancelled(const char* field, const std::string& text, const std::string& property,
		const std::string& shown)
	{
		fWindow->Lock();
		std::string name = fView->File()->Name();
		fWindow->Unlock();
		AlertScript script({0});
		Commit(field, text);
		EXPECT_EQ(Texts{Confirmation(property, name, text)}, script.Texts());
		EXPECT_EQ(shown, Field(field));
	}

	// The file panel answers with the chosen entry.
	void ChooseTarget(const std::string& path) { Send(RefsMessage('FixS', {path})); }

private:
	BWindow* fWindow;
	WindowTester fTester;
	GlintView* fView = nullptr;
};

}	// namespace

TEST(NodeEditsTest, RenameConfirmedCancelledRefusedAndByCaseOnly)
{
	TempFolder folder;
	std::string notes = folder.File("notes", "text");
	folder.File("taken");
	WindowTester::RunHeadless([&] {
		Panel panel(notes);
		panel.CommitUnchanged("Name", "Notes");
		EXPECT_TRUE(Exists(notes));
		panel.CommitCancelled("Name", "letters", "name", "notes");
		EXPECT_TRUE(Exists(notes));
		{
			AlertScript script({1});
			int32 beeps = WindowTester::CountBeeps();
			panel.Commit("Name", "taken");
			EXPECT_EQ(1u, script.Seen().size());
			EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
			EXPECT_EQ("taken", panel.Field("Name"));
			EXPECT_TRUE(Exists(notes));
		}
		{
			AlertScript script({1});
			panel.Commit("Name", "letters");
			const AlertInfo& alert = script.Seen().at(0);
			EXPECT_EQ("Changed", alert.title);
			EXPECT_EQ((Texts{"Cancel", "OK"}), alert.buttons);
			EXPECT_FALSE(Exists(notes));
			EXPECT_EQ("text", RunCommand("cat " + folder.Path("letters")));
			EXPECT_EQ("letters", panel.Field("Name"));
			EXPECT_EQ(folder.Path("letters"), panel.Field("Path"));
			EXPECT_STREQ("letters", panel.View()->File()->Name());
		}
	});
}

TEST(NodeEditsTest, ResizeAsksTwice)
{
	TempFolder folder;
	std::string notes = folder.File("notes", std::string(1000, 'n'));
	WindowTester::RunHeadless([&] {
		Panel panel(notes);
		panel.CommitUnchanged("Size", "1,000");
		// A cancelled first question leaves the typed number in the field.
		panel.CommitCancelled("Size", "2,000", "size", "2,000");
		EXPECT_EQ(1000, SizeOf(notes));
		{
			AlertScript script({1, 0});
			panel.Commit("Size", "2,000");
			ASSERT_EQ(2u, script.Seen().size());
			const AlertInfo& second = script.Seen()[1];
			EXPECT_EQ("a1", second.title);
			EXPECT_EQ("Do you really want to change the size of \n   notes from 1,000 bytes to "
				"\n   2,000 bytes?\n\nThis can be very dangerous.", second.text);
			EXPECT_EQ((Texts{"Cancel", "OK"}), second.buttons);
			EXPECT_EQ(B_STOP_ALERT, second.type);
			EXPECT_EQ(1000, SizeOf(notes));
		}
		{
			// Sizes past the 32-bit range saturate instead of turning negative.
			AlertScript script({1, 0});
			panel.Commit("Size", "3,000,000,000");
			ASSERT_EQ(2u, script.Seen().size());
			EXPECT_NE(std::string::npos, script.Seen()[1].text.find("\n   2,147,483,647 bytes?"))
				<< script.Seen()[1].text;
		}
		{
			AlertScript script({1, 1});
			panel.Commit("Size", "2,000");
			EXPECT_EQ(2u, script.Seen().size());
			EXPECT_EQ(2000, SizeOf(notes));
			EXPECT_EQ("2,000 bytes", panel.Field("Size"));
		}
	});
}

TEST(NodeEditsTest, ResizeOfWhatCannotBeWrittenBeeps)
{
	TempFolder folder;
	mkdir(folder.Path("box").c_str(), 0755);
	WindowTester::RunHeadless([&] {
		Panel panel(folder.Path("box"));
		AlertScript script({1, 1});
		int32 beeps = WindowTester::CountBeeps();
		off_t size = SizeOf(folder.Path("box"));
		panel.Commit("Size", std::to_string(size + 1));
		EXPECT_EQ(2u, script.Seen().size());
		EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
		EXPECT_EQ(std::to_string(size + 1), panel.Field("Size"));
	});
}

TEST(NodeEditsTest, MoveConfirmedCancelledAndToAMissingFolder)
{
	TempFolder folder;
	std::string notes = folder.File("notes");
	mkdir(folder.Path("sub").c_str(), 0755);
	std::string missing = folder.Path("missing/notes");
	std::string moved = folder.Path("sub/notes");
	WindowTester::RunHeadless([&] {
		Panel panel(notes);
		panel.CommitUnchanged("Path", notes);
		panel.CommitCancelled("Path", moved, "path", notes);
		EXPECT_TRUE(Exists(notes));
		{
			AlertScript script({1, 0});
			int32 beeps = WindowTester::CountBeeps();
			panel.Commit("Path", missing);
			ASSERT_EQ(2u, script.Seen().size());
			const AlertInfo& error = script.Seen()[1];
			EXPECT_EQ("Unable to change path of notes to " + missing, error.text);
			EXPECT_EQ(Texts{"Too bad"}, error.buttons);
			EXPECT_EQ(B_WARNING_ALERT, error.type);
			EXPECT_EQ(beeps + 1, WindowTester::CountBeeps());
			EXPECT_EQ(notes, panel.Field("Path"));
			EXPECT_TRUE(Exists(notes));
		}
		{
			AlertScript script({1});
			panel.Commit("Path", moved);
			EXPECT_EQ(1u, script.Seen().size());
			EXPECT_FALSE(Exists(notes));
			EXPECT_TRUE(Exists(moved));
			EXPECT_EQ(moved, panel.Field("Path"));
			EXPECT_EQ("notes", panel.Field("Name"));
		}
	});
}

TEST(NodeEditsTest, RedateConfirmedCancelledAndOfAVanishedNode)
{
	TempFolder folder;
	std::string notes = folder.File("notes");
	struct utimbuf times = {kOldDate, kOldDate};
	utime(notes.c_str(), &times);
	std::string oldText(datetostring(kOldDate));
	std::string newText(datetostring(kNewDate));
	WindowTester::RunHeadless([&] {
		Panel panel(notes);
		panel.CommitUnchanged("Date", oldText);
		panel.CommitCancelled("Date", newText, "date", oldText);
		EXPECT_EQ(kOldDate, DateOf(notes));
		{
			AlertScript script({1});
			panel.Commit("Date", newText);
			EXPECT_EQ(1u, script.Seen().size());
			EXPECT_EQ(kNewDate, DateOf(notes));
			EXPECT_EQ(newText, panel.Field("Date"));
		}
		{
			// A node that is gone has no date to change.
			AlertScript script({1});
			unlink(notes.c_str());
			panel.Commit("Date", oldText);
			EXPECT_TRUE(script.Seen().empty());
			EXPECT_FALSE(Exists(notes));
		}
	});
}

TEST(NodeEditsTest, RelinkConfirmedCancelledAndToTheSameTarget)
{
	TempFolder folder;
	std::string first = folder.File("first");
	std::string second = folder.File("second");
	std::string link = SymbolicLink(folder, "link", first);
	WindowTester::RunHeadless([&] {
		Panel panel(link);
		EXPECT_EQ(first, panel.Field("Target Path"));
		{
			AlertScript script;
			panel.ChooseTarget(first);
			EXPECT_TRUE(script.Seen().empty());
		}
		{
			AlertScript script({0});
			panel.SetField("Target Path", "elsewhere");
			panel.ChooseTarget(second);
			EXPECT_EQ(Texts{Confirmation("target path", "link", second)}, script.Texts());
			EXPECT_EQ(first, panel.Field("Target Path"));
			EXPECT_EQ(first, LinkTarget(link));
		}
		{
			AlertScript script({1});
			panel.ChooseTarget(second);
			EXPECT_EQ(1u, script.Seen().size());
			EXPECT_EQ(second, LinkTarget(link));
			EXPECT_EQ(second, panel.Field("Target Path"));
		}
		{
			// An answer without an entry changes nothing.
			AlertScript script;
			panel.Send(BMessage('FixS'));
			EXPECT_TRUE(script.Seen().empty());
			EXPECT_EQ(second, LinkTarget(link));
		}
	});
}

TEST(NodeEditsTest, SetOpensAPanelNamingTheLink)
{
	TempFolder folder;
	std::string target = folder.File("target");
	std::string link = SymbolicLink(folder, "link", target);
	WindowTester::RunHeadless([&] {
		Panel panel(link);
		panel.Send(BMessage('FinS'));
		bool found = false;
		for (int32 i = 0; BWindow* window = be_app->WindowAt(i); i++)
			found = found || std::string(window->Title()) == "Select a node to link \"link\" to:";
		EXPECT_TRUE(found);
	});
}

TEST(NodeEditsTest, OnlyTheNodeFieldsAreEdits)
{
	TempFolder folder;
	std::string target = folder.File("target");
	std::string link = SymbolicLink(folder, "link", target);
	WindowTester::RunHeadless([&] {
		Panel panel(link);
		AlertScript script({1});
		panel.Commit("Target Path", folder.Path("other"));
		EXPECT_TRUE(script.Seen().empty());
		EXPECT_EQ(target, LinkTarget(link));
	});
}

TEST(NodeEditsTest, MalformedChangesAndMissingNodesThrow)
{
	TempFolder folder;
	std::string notes = folder.File("notes");
	WindowTester::RunHeadless([&] {
		Panel panel(notes);
		AlertScript script;
		BWindow* window = panel.Window();
		window->Lock();
		BMessage bare('Chgd');
		EXPECT_THROW(panel.View()->TextChanged(&bare), StatusError);
		// The field is read first; only then is the missing value noticed.
		BMessage valueless('Chgd');
		valueless.AddPointer("source", static_cast<BControl*>(panel.View()->FindView("Name")));
		EXPECT_THROW(panel.View()->TextChanged(&valueless), StatusError);
		window->Unlock();
		EXPECT_TRUE(script.Seen().empty());

		GlintView empty(BRect(0, 0, 99, 99));
		EXPECT_THROW(empty.FixName("x"), StatusError);
		EXPECT_THROW(empty.FixSize("1"), StatusError);
		EXPECT_THROW(empty.FixDate("today"), StatusError);
		EXPECT_THROW(empty.FixPath("/x"), StatusError);
	});
}

