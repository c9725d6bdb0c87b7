// Loopers, handlers, messengers, filters and invokers working together.

#include <gtest/gtest.h>

#include <Autolock.h>
#include <Invoker.h>
#include <Looper.h>
#include <MessageFilter.h>
#include <Messenger.h>

#include <thread>
#include <vector>

#include "../../../platform/app/MessagePrivate.h"

using BPrivate::WaitForLooperIdle;

namespace {

// Records every message it receives, in order, and can be told to misbehave.
class Recorder : public BLooper {
public:
	Recorder() : BLooper("recorder") {}

	void MessageReceived(BMessage* message) override
	{
		EXPECT_TRUE(IsLocked());
		EXPECT_EQ(LooperForThread(find_thread(NULL)), this);
		received.push_back(*message);
		switch (message->what) {
			case 'echo': {
				BMessage reply(B_REPLY);
				reply.AddInt32("value", message->GetInt32("value", 0) + 1);
				message->SendReply(&reply);
				break;
			}
			case 'keep':
				// Never answered while the test waits.
				kept.reset(DetachCurrentMessage());
				break;
			case 'quit':
				Quit();
				break;
			case 'none':
				break;
			default:
				BLooper::MessageReceived(message);
		}
	}

	bool QuitRequested() override { return allowQuit; }

	std::vector<BMessage> received;
	std::unique_ptr<BMessage> kept;
	bool allowQuit = true;
};

// A looper that has run and will be quit (and so deleted) by the fixture.
class LooperTest : public testing::Test {
protected:
	void SetUp() override
	{
		fLooper = new Recorder;
		fThread = fLooper->Run();
		ASSERT_GT(fThread, 0);
	}

	void TearDown() override
	{
		if (fLooper != nullptr && fLooper->Lock())
			fLooper->Quit();
	}

	// Waits until everything posted so far has been dispatched.
	void Idle() { ASSERT_EQ(WaitForLooperIdle(fLooper, 5000000), B_OK); }

	Recorder* fLooper = nullptr;
	thread_id fThread = -1;
};

filter_result
SkipOdd(BMessage* message, BHandler**, BMessageFilter*)
{
	return message->GetInt32("n", 0) % 2 != 0 ? B_SKIP_MESSAGE : B_DISPATCH_MESSAGE;
}

filter_result
SkipAll(BMessage*, BHandler**, BMessageFilter*)
{
	return B_SKIP_MESSAGE;
}

class Redirect : public BMessageFilter {
public:
	Redirect(BHandler* to) : BMessageFilter('redi'), fTo(to) {}

	filter_result Filter(BMessage*, BHandler** target) override
	{
		*target = fTo;
		return B_DISPATCH_MESSAGE;
	}

private:
	BHandler* fTo;
};

class Counter : public BHandler {
public:
	Counter() : BHandler("counter") {}
	void MessageReceived(BMessage* message) override { received.push_back(message->what); }
	std::vector<uint32> received;
};

}	// namespace

TEST_F(LooperTest, MessagesArriveInPostingOrder)
{
	for (int32 i = 0; i < 1000; i++) {
		BMessage message('ordr');
		message.AddInt32("n", i);
		ASSERT_EQ(fLooper->PostMessage(&message), B_OK);
	}
	Idle();
	ASSERT_EQ(fLooper->received.size(), 1000u);
	for (int32 i = 0; i < 1000; i++)
		EXPECT_EQ(fLooper->received[i].GetInt32("n", -1), i);
}

TEST_F(LooperTest, PostingFromManyThreadsLosesNothing)
{
	const int kThreads = 8, kEach = 300;
	std::vector<std::thread> posters;
	for (int t = 0; t < kThreads; t++) {
		posters.emplace_back([this, t] {
			BMessenger messenger(fLooper);
			for (int32 i = 0; i < kEach; i++) {
				BMessage message('many');
				message.AddInt32("thread", t);
				message.AddInt32("n", i);
				EXPECT_EQ(messenger.SendMessage(&message), B_OK);
			}
		});
	}
	for (std::thread& poster : posters)
		poster.join();
	Idle();

	ASSERT_EQ(fLooper->received.size(), static_cast<size_t>(kThreads * kEach));
	std::vector<int32> next(kThreads, 0);
	for (const BMessage& message : fLooper->received) {
		int32 thread = message.GetInt32("thread", -1);
		EXPECT_EQ(message.GetInt32("n", -1), next[thread]++);
	}
}

TEST_F(LooperTest, ForeignLockHoldsDispatchBack)
{
	ASSERT_TRUE(fLooper->Lock());
	EXPECT_TRUE(fLooper->IsLocked());
	EXPECT_EQ(fLooper->LockingThread(), find_thread(NULL));
	fLooper->PostMessage('wait');

	std::thread other([this] {
		EXPECT_FALSE(fLooper->IsLocked());
		EXPECT_EQ(fLooper->LockWithTimeout(1000), B_TIMED_OUT);
	});
	other.join();
	EXPECT_TRUE(fLooper->received.empty());
	fLooper->Unlock();

	Idle();
	ASSERT_EQ(fLooper->received.size(), 1u);
	BAutolock lock(fLooper);
	EXPECT_TRUE(lock.IsLocked());
}

TEST_F(LooperTest, QuitRequestedMayRefuse)
{
	fLooper->allowQuit = false;
	BMessenger messenger(fLooper);
	BMessage reply;
	ASSERT_EQ(messenger.SendMessage(B_QUIT_REQUESTED, &reply), B_OK);
	EXPECT_FALSE(reply.GetBool("result", true));
	EXPECT_TRUE(messenger.IsValid());

	fLooper->allowQuit = true;
	ASSERT_EQ(messenger.SendMessage(B_QUIT_REQUESTED, &reply), B_OK);
	EXPECT_TRUE(reply.GetBool("result", false));
	fLooper = nullptr;
	EXPECT_EQ(wait_for_thread(fThread, NULL), B_OK);

	// The looper is gone: its address answers so.
	EXPECT_FALSE(messenger.IsValid());
	EXPECT_EQ(messenger.SendMessage('late'), B_BAD_PORT_ID);
	EXPECT_FALSE(messenger.LockTarget());
}

TEST_F(LooperTest, SynchronousReplies)
{
	BMessenger messenger(fLooper);
	BMessage request('echo');
	request.AddInt32("value", 41);
	BMessage reply;
	ASSERT_EQ(messenger.SendMessage(&request, &reply), B_OK);
	EXPECT_EQ(reply.what, static_cast<uint32>(B_REPLY));
	EXPECT_EQ(reply.GetInt32("value", 0), 42);
	EXPECT_TRUE(reply.IsReply());
	ASSERT_NE(reply.Previous(), nullptr);
	EXPECT_EQ(reply.Previous()->what, static_cast<uint32>('echo'));

	// Not understood by the default handler; dropped without a reply.
	ASSERT_EQ(messenger.SendMessage('what', &reply), B_OK);
	EXPECT_EQ(reply.what, static_cast<uint32>(B_MESSAGE_NOT_UNDERSTOOD));
	ASSERT_EQ(messenger.SendMessage('none', &reply), B_OK);
	EXPECT_EQ(reply.what, static_cast<uint32>(B_NO_REPLY));
}

TEST_F(LooperTest, TargetThatNeverAnswersTimesOut)
{
	BMessenger messenger(fLooper);
	BMessage reply;
	bigtime_t start = system_time();
	BMessage keep('keep');
	EXPECT_EQ(messenger.SendMessage(&keep, &reply, B_INFINITE_TIMEOUT, 50000), B_TIMED_OUT);
	EXPECT_GE(system_time() - start, 50000);
	Idle();
	// An answer after the sender gave up goes nowhere.
	EXPECT_EQ(fLooper->kept->SendReply(B_REPLY), B_OK);
	EXPECT_EQ(fLooper->kept->SendReply(B_REPLY), B_DUPLICATE_REPLY);
}

TEST_F(LooperTest, SynchronousSendToSelfIsRefused)
{
	class Self : public BLooper {
	public:
		void MessageReceived(BMessage* message) override
		{
			BMessage reply;
			status = BMessenger(this).SendMessage('self', &reply);
			idle = WaitForLooperIdle(this, 1000);
			message->SendReply(B_REPLY);
		}
		status_t status = B_OK;
		status_t idle = B_OK;
	};
	Self* looper = new Self;
	looper->Run();
	BMessage reply;
	ASSERT_EQ(BMessenger(looper).SendMessage('go  ', &reply), B_OK);
	EXPECT_EQ(looper->status, B_MESSAGE_TO_SELF);
	EXPECT_EQ(looper->idle, B_MESSAGE_TO_SELF);
	looper->Lock();
	looper->Quit();
}

TEST_F(LooperTest, QuitFromTheLoopersOwnThread)
{
	fLooper->PostMessage('quit');
	fLooper->PostMessage('gone');
	fLooper = nullptr;
	EXPECT_EQ(wait_for_thread(fThread, NULL), B_OK);
}

TEST(LooperLifeTest, LooperThatNeverRanIsDeletedByQuit)
{
	BLooper* looper = new BLooper("idle");
	EXPECT_TRUE(looper->IsLocked());
	BMessenger messenger(looper);
	EXPECT_EQ(messenger.SendMessage('kept'), B_OK);
	looper->Quit();
	EXPECT_FALSE(messenger.IsValid());
}

TEST_F(LooperTest, HandlersFiltersAndPreferredHandler)
{
	Counter* counter = new Counter;
	Counter* other = new Counter;
	ASSERT_TRUE(fLooper->Lock());
	fLooper->AddHandler(counter);
	fLooper->AddHandler(other);
	fLooper->AddCommonFilter(new BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE, 'odd?',
		SkipOdd));
	counter->AddFilter(new Redirect(other));
	counter->AddFilter(new BMessageFilter(B_DROPPED_DELIVERY, B_ANY_SOURCE, 'drop', SkipAll));
	fLooper->SetPreferredHandler(counter);
	EXPECT_EQ(fLooper->CountHandlers(), 3);
	fLooper->Unlock();

	for (int32 n = 0; n < 4; n++) {
		BMessage message('odd?');
		message.AddInt32("n", n);
		fLooper->PostMessage(&message, counter);
	}
	fLooper->PostMessage('redi', counter);
	fLooper->PostMessage('drop', counter);
	BMessage dropped('drop');
	BPrivate::MessageAccess::SetDropped(&dropped, BPoint(1, 1), BPoint());
	fLooper->PostMessage(&dropped, counter);
	fLooper->PostMessage('pref', NULL);
	Idle();

	EXPECT_EQ(counter->received, (std::vector<uint32>{'odd?', 'odd?', 'drop', 'pref'}));
	EXPECT_EQ(other->received, (std::vector<uint32>{'redi'}));

	Recorder* foreign = new Recorder;
	EXPECT_EQ(foreign->PostMessage('nope', counter), B_MISMATCHED_VALUES);
	foreign->Quit();

	ASSERT_TRUE(fLooper->Lock());
	EXPECT_TRUE(fLooper->RemoveHandler(counter));
	EXPECT_EQ(fLooper->PreferredHandler(), nullptr);
	EXPECT_FALSE(fLooper->RemoveHandler(counter));
	fLooper->RemoveHandler(other);
	fLooper->Unlock();
	delete counter;
	delete other;
}

TEST_F(LooperTest, AsynchronousReplyGoesToTheReplyHandler)
{
	Counter* replies = new Counter;
	ASSERT_TRUE(fLooper->Lock());
	fLooper->AddHandler(replies);
	fLooper->Unlock();

	BMessage request('echo');
	ASSERT_EQ(fLooper->PostMessage(&request, fLooper, replies), B_OK);
	Idle();
	Idle();
	EXPECT_EQ(replies->received, (std::vector<uint32>{B_REPLY}));

	ASSERT_TRUE(fLooper->Lock());
	fLooper->RemoveHandler(replies);
	fLooper->Unlock();
	delete replies;
}

TEST_F(LooperTest, InvokerAddsWhenAndSource)
{
	BInvoker invoker(new BMessage('invk'), fLooper);
	EXPECT_EQ(invoker.Command(), static_cast<uint32>('invk'));
	EXPECT_EQ(invoker.Target(), fLooper);
	bigtime_t before = system_time();
	ASSERT_EQ(invoker.Invoke(), B_OK);
	Idle();

	ASSERT_EQ(fLooper->received.size(), 1u);
	const BMessage& sent = fLooper->received[0];
	EXPECT_GE(sent.GetInt64("when", 0), before);
	void* source;
	ASSERT_EQ(sent.FindPointer("source", &source), B_OK);
	EXPECT_EQ(source, &invoker);

	BInvoker empty;
	Counter loose;
	EXPECT_EQ(empty.Invoke(), B_BAD_VALUE);
	EXPECT_EQ(empty.SetTarget(&loose), B_BAD_HANDLER);
}
