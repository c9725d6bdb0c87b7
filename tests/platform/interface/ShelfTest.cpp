// A shelf on a view accepts no replicants and keeps dropped archives away from
// its view.

#include <gtest/gtest.h>

#include <string>

#include <Shelf.h>
#include <View.h>
#include <Window.h>
#include <WindowTester.h>

using BPrivate::WindowTester;

namespace {

// Logs the commands that reach it.
class LogView : public BView {
public:
	LogView(BRect frame) : BView(frame, "log", B_FOLLOW_ALL, B_WILL_DRAW) {}

	void MessageReceived(BMessage* message) override
	{
		log += message->what == B_ARCHIVED_OBJECT ? "archive|" : "other|";
	}

	std::string log;
};

BMessage
Archive()
{
	BMessage archive(B_ARCHIVED_OBJECT);
	archive.AddString("class", "BDragger");
	archive.AddString("add_on", "application/x-vnd.Some-Replicant");
	return archive;
}

}	// namespace

TEST(ShelfTest, ShelfRefusesReplicantsAndKeepsArchivesFromItsView)
{
	WindowTester::RunHeadless([] {
		BWindow* window = new BWindow(BRect(20, 20, 219, 119), "Shelf", B_TITLED_WINDOW, 0);
		LogView* view = new LogView(window->Bounds());
		window->AddChild(view);
		BShelf* shelf = new BShelf(view, false, "vellum-shelf");
		window->Show();
		WindowTester tester(window);

		BMessage archive = Archive();
		EXPECT_EQ(B_UNSUPPORTED, shelf->AddReplicant(&archive, BPoint(5, 5)));
		EXPECT_EQ(0, shelf->CountReplicants());
		status_t error = B_OK;
		EXPECT_EQ(nullptr, shelf->ReplicantAt(0, nullptr, nullptr, &error));
		EXPECT_EQ(B_BAD_INDEX, error);

		BMessenger target(view);
		target.SendMessage(&archive);
		target.SendMessage('othr');
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("other|", view->log);
		EXPECT_EQ(0, shelf->CountReplicants());
		// Without the shelf, archives are the view's business again.
		delete shelf;
		view->log.clear();
		window->Unlock();
		target.SendMessage(&archive);
		ASSERT_EQ(B_OK, tester.WaitForIdle());
		ASSERT_TRUE(window->Lock());
		EXPECT_EQ("archive|", view->log);

		// A shelf outliving its view lets go of it safely.
		BShelf* orphan = new BShelf(view);
		window->Quit();
		delete orphan;
	});
}
