#include <Autolock.h>
#include <Locker.h>
#include <OS.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

status_t
ReturnData(void* data)
{
	return static_cast<status_t>(reinterpret_cast<intptr_t>(data));
}

status_t
RecordOwnName(void* data)
{
	thread_info info;
	get_thread_info(find_thread(nullptr), &info);
	*static_cast<std::string*>(data) = info.name;
	return B_OK;
}

struct Gate {
	sem_id started;
	sem_id proceed;
};

status_t
WaitAtGate(void* data)
{
	Gate* gate = static_cast<Gate*>(data);
	release_sem(gate->started);
	return acquire_sem(gate->proceed);
}

}	// namespace

TEST(ThreadTest, SpawnedThreadsStartSuspendedAndReturnTheirValue)
{
	thread_id thread = spawn_thread(ReturnData, "returner", B_NORMAL_PRIORITY,
		reinterpret_cast<void*>(intptr_t(42)));
	ASSERT_GT(thread, 0);
	thread_info info;
	ASSERT_EQ(B_OK, get_thread_info(thread, &info));
	EXPECT_EQ(B_THREAD_SUSPENDED, info.state);
	EXPECT_STREQ("returner", info.name);
	EXPECT_EQ(B_OK, resume_thread(thread));
	EXPECT_EQ(B_BAD_THREAD_STATE, resume_thread(thread));
	status_t result = 0;
	EXPECT_EQ(B_OK, wait_for_thread(thread, &result));
	EXPECT_EQ(42, result);
	EXPECT_EQ(B_BAD_THREAD_ID, wait_for_thread(thread, &result));
}

TEST(ThreadTest, WaitingResumesASuspendedThread)
{
	thread_id thread = spawn_thread(ReturnData, "never resumed", B_LOW_PRIORITY, nullptr);
	status_t result = -1;
	EXPECT_EQ(B_OK, wait_for_thread(thread, &result));
	EXPECT_EQ(0, result);
}

TEST(ThreadTest, FindAndRenameThreads)
{
	thread_id self = find_thread(nullptr);
	EXPECT_GT(self, 0);
	EXPECT_EQ(self, find_thread(nullptr));

	Gate gate{create_sem(0, "started"), create_sem(0, "proceed")};
	thread_id thread = spawn_thread(WaitAtGate, "findable", B_NORMAL_PRIORITY, &gate);
	resume_thread(thread);
	acquire_sem(gate.started);
	EXPECT_EQ(thread, find_thread("findable"));
	EXPECT_EQ(B_OK, rename_thread(thread, "renamed"));
	EXPECT_EQ(thread, find_thread("renamed"));
	EXPECT_EQ(B_NAME_NOT_FOUND, find_thread("findable"));
	release_sem(gate.proceed);
	wait_for_thread(thread, nullptr);
	delete_sem(gate.started);
	delete_sem(gate.proceed);

	std::string name;
	thread_id named = spawn_thread(RecordOwnName, "OpenWin", 10, &name);
	wait_for_thread(named, nullptr);
	EXPECT_EQ("OpenWin", name);
	EXPECT_EQ(B_BAD_THREAD_ID, resume_thread(12345678));
}

TEST(SemaphoreTest, CountsAndTimeouts)
{
	sem_id sem = create_sem(2, "counter");
	EXPECT_EQ(B_OK, acquire_sem_etc(sem, 2, 0, 0));
	EXPECT_EQ(B_WOULD_BLOCK, acquire_sem_etc(sem, 1, B_RELATIVE_TIMEOUT, 0));
	bigtime_t start = system_time();
	EXPECT_EQ(B_TIMED_OUT, acquire_sem_etc(sem, 1, B_RELATIVE_TIMEOUT, 20000));
	EXPECT_GE(system_time() - start, 20000);
	EXPECT_EQ(B_TIMED_OUT,
		acquire_sem_etc(sem, 1, B_ABSOLUTE_TIMEOUT, system_time() + 5000));
	EXPECT_EQ(B_OK, release_sem_etc(sem, 3, 0));
	int32 count = 0;
	EXPECT_EQ(B_OK, get_sem_count(sem, &count));
	EXPECT_EQ(3, count);
	EXPECT_EQ(B_BAD_VALUE, acquire_sem_etc(sem, 0, 0, 0));
	EXPECT_EQ(B_OK, delete_sem(sem));
	EXPECT_EQ(B_BAD_SEM_ID, acquire_sem(sem));
	EXPECT_EQ(B_BAD_SEM_ID, release_sem(sem));
	EXPECT_EQ(B_BAD_SEM_ID, delete_sem(sem));
}

TEST(SemaphoreTest, DeletionWakesWaitersWithBadSemID)
{
	sem_id sem = create_sem(0, "doomed");
	std::atomic<int> woken{0};
	std::vector<std::thread> waiters;
	for (int i = 0; i < 3; i++) {
		waiters.emplace_back([&] {
			if (acquire_sem(sem) == B_BAD_SEM_ID)
				woken++;
		});
	}
	int32 count = 0;
	while (get_sem_count(sem, &count) == B_OK && count > -3)
		std::this_thread::yield();
	EXPECT_EQ(-3, count);
	delete_sem(sem);
	for (auto& waiter : waiters)
		waiter.join();
	EXPECT_EQ(3, woken);
}

TEST(SemaphoreTest, ReleasesFromManyThreadsAreAllCounted)
{
	sem_id sem = create_sem(0, "many");
	std::vector<std::thread> releasers;
	for (int i = 0; i < 8; i++)
		releasers.emplace_back([sem] {
			for (int j = 0; j < 100; j++)
				release_sem(sem);
		});
	EXPECT_EQ(B_OK, acquire_sem_etc(sem, 800, 0, 0));
	for (auto& releaser : releasers)
		releaser.join();
	EXPECT_EQ(B_WOULD_BLOCK, acquire_sem_etc(sem, 1, B_RELATIVE_TIMEOUT, 0));
	delete_sem(sem);
}

TEST(LockerTest, RecursiveAndOwnedByOneThread)
{
	BLocker locker("test");
	EXPECT_FALSE(locker.IsLocked());
	ASSERT_TRUE(locker.Lock());
	ASSERT_TRUE(locker.Lock());
	EXPECT_TRUE(locker.IsLocked());
	EXPECT_EQ(find_thread(nullptr), locker.LockingThread());
	EXPECT_EQ(2, locker.CountLocks());

	status_t foreign = B_OK;
	bool foreignSeesLocked = true;
	std::thread([&] {
		foreignSeesLocked = locker.IsLocked();
		foreign = locker.LockWithTimeout(10000);
		locker.Unlock();	// not the owner: ignored
	}).join();
	EXPECT_FALSE(foreignSeesLocked);
	EXPECT_EQ(B_TIMED_OUT, foreign);
	EXPECT_TRUE(locker.IsLocked());

	locker.Unlock();
	EXPECT_TRUE(locker.IsLocked());
	locker.Unlock();
	EXPECT_FALSE(locker.IsLocked());
	EXPECT_EQ(-1, locker.LockingThread());

	std::thread([&] { foreign = locker.LockWithTimeout(0); locker.Unlock(); }).join();
	EXPECT_EQ(B_OK, foreign);
}

TEST(LockerTest, AutolockHoldsForItsScopeOrUntilUnlocked)
{
	BLocker locker("auto");
	{
		BAutolock lock(locker);
		EXPECT_TRUE(lock.IsLocked());
		EXPECT_TRUE(locker.IsLocked());
		lock.Unlock();
		EXPECT_FALSE(lock.IsLocked());
		EXPECT_FALSE(locker.IsLocked());
	}
	{
		BAutolock lock(&locker);
		EXPECT_EQ(1, locker.CountLocks());
	}
	EXPECT_FALSE(locker.IsLocked());

	// A lock held elsewhere is waited for, not stolen: the waiter gets it only
	// after the holder let it go.
	ASSERT_TRUE(locker.Lock());
	std::atomic<bool> trying = false, released = false;
	bool heldInside = false, gotItAfterRelease = false;
	std::thread waiter([&] {
		trying = true;
		BAutolock lock(locker);
		gotItAfterRelease = released;
		heldInside = lock.IsLocked() && locker.LockingThread() == find_thread(nullptr);
	});
	while (!trying)
		std::this_thread::yield();
	for (int32 i = 0; i < 1000; i++)
		std::this_thread::yield();
	released = true;
	locker.Unlock();
	waiter.join();
	EXPECT_TRUE(heldInside);
	EXPECT_TRUE(gotItAfterRelease);
}

TEST(TimeTest, SystemTimeIsMonotonicMicroseconds)
{
	bigtime_t before = system_time();
	snooze(2000);
	bigtime_t after = system_time();
	EXPECT_GE(after - before, 2000);
	EXPECT_LT(after - before, 2000000);
	EXPECT_GT(real_time_clock(), 1600000000u);
}
