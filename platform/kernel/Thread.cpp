// Threads with BeOS identities: ids, names and priorities, created suspended.

#include <OS.h>

#include "Threads.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

struct ThreadRecord {
	thread_id id = -1;
	std::string name;
	int32 priority = B_NORMAL_PRIORITY;
	thread_func function = nullptr;
	void* data = nullptr;
	bool resumed = false;
	bool finished = false;
	status_t exitValue = B_OK;
	// Joined by whoever waits for the thread, or by the next reaping once the
	// function has returned: a thread still tearing down its thread-local data
	// (the display library keeps some) must not outlive the process's exit.
	std::thread native;
};

// Thrown by exit_thread to leave the thread function from any depth.
struct ThreadExit {
	status_t value;
};

// The threads the kits know, under one lock: the table and every state change
// of a record. A thread's record goes once the thread has been joined.
class ThreadRegistry {
public:
	std::shared_ptr<ThreadRecord> Find(thread_id id)
	{
		std::lock_guard<std::mutex> guard(fLock);
		auto found = fThreads.find(id);
		return found == fThreads.end() ? nullptr : found->second;
	}

	std::shared_ptr<ThreadRecord> Add(const char* name, int32 priority)
	{
		auto record = std::make_shared<ThreadRecord>();
		record->id = fNextID.fetch_add(1);
		record->name = name != nullptr ? name : "thread";
		record->priority = priority;
		std::lock_guard<std::mutex> guard(fLock);
		fThreads[record->id] = record;
		return record;
	}

	// Joins every thread whose function has returned and that nobody joined,
	// and forgets it.
	void JoinFinished()
	{
		std::vector<std::thread> ended;
		{
			std::lock_guard<std::mutex> guard(fLock);
			for (auto it = fThreads.begin(); it != fThreads.end();) {
				ThreadRecord& record = *it->second;
				if (record.finished && record.native.joinable()) {
					ended.push_back(std::move(record.native));
					it = fThreads.erase(it);
				} else
					++it;
			}
		}
		for (std::thread& thread : ended)
			thread.join();
	}

	void Remove(thread_id id)
	{
		std::lock_guard<std::mutex> guard(fLock);
		fThreads.erase(id);
	}

	thread_id FindByName(const char* name)
	{
		std::lock_guard<std::mutex> guard(fLock);
		for (auto& [id, record] : fThreads) {
			if (!record->finished && record->name == name)
				return id;
		}
		return B_NAME_NOT_FOUND;
	}

	size_t Count()
	{
		std::lock_guard<std::mutex> guard(fLock);
		return fThreads.size();
	}

	// Every state change of a record happens under this lock.
	std::mutex& Lock() { return fLock; }
	std::condition_variable& StateChanged() { return fStateChanged; }

private:
	std::mutex fLock;
	std::map<thread_id, std::shared_ptr<ThreadRecord>> fThreads;
	std::atomic<thread_id> fNextID{1};
	std::condition_variable fStateChanged;
};

ThreadRegistry&
Registry()
{
	static ThreadRegistry* registry = new ThreadRegistry;
	return *registry;
}

thread_local thread_id tCurrentThread = -1;

// The identity of a thread that the kits did not spawn, forgotten when the
// thread ends.
struct AdoptedIdentity {
	thread_id id = -1;

	~AdoptedIdentity()
	{
		if (id >= 0)
			Registry().Remove(id);
	}
};

thread_local AdoptedIdentity tAdopted;

void
SetSystemThreadName(const std::string& name)
{
	// The system keeps 15 bytes of a thread's name.
	pthread_setname_np(pthread_self(), name.substr(0, 15).c_str());
}

void
RunThread(std::shared_ptr<ThreadRecord> record)
{
	ThreadRegistry& registry = Registry();
	thread_func function;
	void* data;
	{
		std::unique_lock<std::mutex> guard(registry.Lock());
		registry.StateChanged().wait(guard, [&] { return record->resumed; });
		function = record->function;
		data = record->data;
	}
	tCurrentThread = record->id;
	SetSystemThreadName(record->name);

	status_t result;
	try {
		result = function(data);
	} catch (const ThreadExit& exit) {
		result = exit.value;
	}

	std::lock_guard<std::mutex> guard(registry.Lock());
	record->exitValue = result;
	record->finished = true;
	registry.StateChanged().notify_all();
}

}	// namespace

thread_id
spawn_thread(thread_func function, const char* name, int32 priority, void* data)
{
	if (function == nullptr)
		return B_BAD_VALUE;
	Registry().JoinFinished();
	auto record = Registry().Add(name, priority);
	record->function = function;
	record->data = data;
	try {
		std::thread native(RunThread, record);
		std::lock_guard<std::mutex> guard(Registry().Lock());
		record->native = std::move(native);
	} catch (const std::system_error&) {
		Registry().Remove(record->id);
		return B_NO_MORE_THREADS;
	}
	return record->id;
}

status_t
resume_thread(thread_id thread)
{
	auto record = Registry().Find(thread);
	if (record == nullptr || record->function == nullptr)
		return B_BAD_THREAD_ID;
	std::lock_guard<std::mutex> guard(Registry().Lock());
	if (record->resumed)
		return B_BAD_THREAD_STATE;
	record->resumed = true;
	Registry().StateChanged().notify_all();
	return B_OK;
}

status_t
wait_for_thread(thread_id thread, status_t* returnValue)
{
	auto record = Registry().Find(thread);
	if (record == nullptr || record->function == nullptr)
		return B_BAD_THREAD_ID;
	if (thread == find_thread(nullptr))
		return B_BAD_THREAD_ID;
	std::thread ended;
	{
		std::unique_lock<std::mutex> guard(Registry().Lock());
		if (!record->resumed) {
			record->resumed = true;
			Registry().StateChanged().notify_all();
		}
		Registry().StateChanged().wait(guard, [&] { return record->finished; });
		if (returnValue != nullptr)
			*returnValue = record->exitValue;
		ended = std::move(record->native);
	}
	if (ended.joinable())
		ended.join();
	Registry().Remove(thread);
	return B_OK;
}

status_t
rename_thread(thread_id thread, const char* newName)
{
	if (newName == nullptr)
		return B_BAD_VALUE;
	auto record = Registry().Find(thread);
	if (record == nullptr)
		return B_BAD_THREAD_ID;
	std::lock_guard<std::mutex> guard(Registry().Lock());
	record->name = std::string(newName).substr(0, B_OS_NAME_LENGTH - 1);
	if (thread == tCurrentThread)
		SetSystemThreadName(record->name);
	return B_OK;
}

status_t
set_thread_priority(thread_id thread, int32 newPriority)
{
	auto record = Registry().Find(thread);
	if (record == nullptr)
		return B_BAD_THREAD_ID;
	std::lock_guard<std::mutex> guard(Registry().Lock());
	int32 old = record->priority;
	record->priority = newPriority;
	return old;
}

thread_id
find_thread(const char* name)
{
	if (name != nullptr)
		return Registry().FindByName(name);
	if (tCurrentThread < 0) {
		// A thread that the kits did not spawn (the main thread, a test's
		// std::thread) gets an identity on first use.
		char systemName[16] = "thread";
		pthread_getname_np(pthread_self(), systemName, sizeof(systemName));
		auto record = Registry().Add(systemName, B_NORMAL_PRIORITY);
		record->resumed = true;
		tCurrentThread = record->id;
		tAdopted.id = record->id;
	}
	return tCurrentThread;
}

status_t
get_thread_info(thread_id thread, thread_info* info)
{
	if (info == nullptr)
		return B_BAD_VALUE;
	auto record = Registry().Find(thread);
	if (record == nullptr)
		return B_BAD_THREAD_ID;
	std::lock_guard<std::mutex> guard(Registry().Lock());
	info->thread = record->id;
	info->team = current_team();
	strncpy(info->name, record->name.c_str(), B_OS_NAME_LENGTH - 1);
	info->name[B_OS_NAME_LENGTH - 1] = '\0';
	info->priority = record->priority;
	info->state = !record->resumed ? B_THREAD_SUSPENDED : B_THREAD_RUNNING;
	return B_OK;
}

void
exit_thread(status_t status)
{
	throw ThreadExit{status};
}

team_id
current_team()
{
	return static_cast<team_id>(getpid());
}

void
BPrivate::JoinFinishedThreads()
{
	Registry().JoinFinished();
}

size_t
BPrivate::CountKnownThreads()
{
	return Registry().Count();
}
