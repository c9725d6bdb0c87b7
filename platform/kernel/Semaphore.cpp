// Counting semaphores with BeOS ids and timeouts.

#include <OS.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace {

struct Semaphore {
	std::mutex lock;
	std::condition_variable changed;
	int32 count = 0;
	int32 waiting = 0;
	bool deleted = false;
	std::string name;
	thread_id latestHolder = -1;
};

class SemaphoreRegistry {
public:
	sem_id Add(std::shared_ptr<Semaphore> semaphore)
	{
		std::lock_guard<std::mutex> guard(fLock);
		sem_id id = fNextID++;
		fSemaphores[id] = std::move(semaphore);
		return id;
	}

	std::shared_ptr<Semaphore> Find(sem_id id)
	{
		std::lock_guard<std::mutex> guard(fLock);
		auto found = fSemaphores.find(id);
		return found == fSemaphores.end() ? nullptr : found->second;
	}

	std::shared_ptr<Semaphore> Remove(sem_id id)
	{
		std::lock_guard<std::mutex> guard(fLock);
		auto found = fSemaphores.find(id);
		if (found == fSemaphores.end())
			return nullptr;
		auto semaphore = found->second;
		fSemaphores.erase(found);
		return semaphore;
	}

private:
	std::mutex fLock;
	std::map<sem_id, std::shared_ptr<Semaphore>> fSemaphores;
	sem_id fNextID = 1;
};

SemaphoreRegistry&
Registry()
{
	static SemaphoreRegistry* registry = new SemaphoreRegistry;
	return *registry;
}

}	// namespace

sem_id
create_sem(int32 count, const char* name)
{
	if (count < 0)
		return B_BAD_VALUE;
	auto semaphore = std::make_shared<Semaphore>();
	semaphore->count = count;
	semaphore->name = name != nullptr ? name : "sem";
	return Registry().Add(std::move(semaphore));
}

status_t
delete_sem(sem_id sem)
{
	auto semaphore = Registry().Remove(sem);
	if (semaphore == nullptr)
		return B_BAD_SEM_ID;
	std::lock_guard<std::mutex> guard(semaphore->lock);
	semaphore->deleted = true;
	semaphore->changed.notify_all();
	return B_OK;
}

status_t
acquire_sem(sem_id sem)
{
	return acquire_sem_etc(sem, 1, 0, 0);
}

status_t
acquire_sem_etc(sem_id sem, int32 count, uint32 flags, bigtime_t timeout)
{
	if (count < 1)
		return B_BAD_VALUE;
	auto semaphore = Registry().Find(sem);
	if (semaphore == nullptr)
		return B_BAD_SEM_ID;

	std::unique_lock<std::mutex> guard(semaphore->lock);
	auto ready = [&] { return semaphore->deleted || semaphore->count >= count; };
	bool timed = (flags & (B_RELATIVE_TIMEOUT | B_ABSOLUTE_TIMEOUT)) != 0
		&& timeout != B_INFINITE_TIMEOUT;
	if (timed && (flags & B_ABSOLUTE_TIMEOUT) != 0)
		timeout -= system_time();

	semaphore->waiting++;
	bool satisfied;
	if (!timed)
		satisfied = (semaphore->changed.wait(guard, ready), true);
	else if (timeout <= 0)
		satisfied = ready();
	else
		satisfied = semaphore->changed.wait_for(guard, std::chrono::microseconds(timeout), ready);
	semaphore->waiting--;

	if (semaphore->deleted)
		return B_BAD_SEM_ID;
	if (!satisfied)
		return timeout <= 0 ? B_WOULD_BLOCK : B_TIMED_OUT;
	semaphore->count -= count;
	semaphore->latestHolder = find_thread(nullptr);
	return B_OK;
}

status_t
release_sem(sem_id sem)
{
	return release_sem_etc(sem, 1, 0);
}

status_t
release_sem_etc(sem_id sem, int32 count, uint32 flags)
{
	if (count < 1 && (flags & B_RELEASE_ALL) == 0)
		return B_BAD_VALUE;
	auto semaphore = Registry().Find(sem);
	if (semaphore == nullptr)
		return B_BAD_SEM_ID;
	std::lock_guard<std::mutex> guard(semaphore->lock);
	if ((flags & B_RELEASE_IF_WAITING_ONLY) != 0 && semaphore->waiting == 0)
		return B_OK;
	if ((flags & B_RELEASE_ALL) != 0)
		count = semaphore->waiting;
	semaphore->count += count;
	semaphore->changed.notify_all();
	return B_OK;
}

status_t
get_sem_count(sem_id sem, int32* threadCount)
{
	if (threadCount == nullptr)
		return B_BAD_VALUE;
	auto semaphore = Registry().Find(sem);
	if (semaphore == nullptr)
		return B_BAD_SEM_ID;
	std::lock_guard<std::mutex> guard(semaphore->lock);
	// As on BeOS, a negative count tells how many threads are waiting.
	*threadCount = semaphore->count > 0 ? semaphore->count : -semaphore->waiting;
	return B_OK;
}

status_t
get_sem_info(sem_id sem, sem_info* info)
{
	if (info == nullptr)
		return B_BAD_VALUE;
	auto semaphore = Registry().Find(sem);
	if (semaphore == nullptr)
		return B_BAD_SEM_ID;
	std::lock_guard<std::mutex> guard(semaphore->lock);
	info->sem = sem;
	info->team = current_team();
	strncpy(info->name, semaphore->name.c_str(), B_OS_NAME_LENGTH - 1);
	info->name[B_OS_NAME_LENGTH - 1] = '\0';
	info->count = semaphore->count;
	info->latest_holder = semaphore->latestHolder;
	return B_OK;
}
