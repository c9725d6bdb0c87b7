#ifndef _OS_H
#define _OS_H

#include <SupportDefs.h>

#define B_OS_NAME_LENGTH 32
#define B_INFINITE_TIMEOUT (9223372036854775807LL)

typedef int32 thread_id;
typedef int32 sem_id;
typedef int32 team_id;
typedef int32 port_id;
typedef status_t (*thread_func)(void* data);

enum {
	B_LOW_PRIORITY = 5,
	B_NORMAL_PRIORITY = 10,
	B_DISPLAY_PRIORITY = 15,
	B_URGENT_DISPLAY_PRIORITY = 20,
	B_REAL_TIME_DISPLAY_PRIORITY = 100,
	B_URGENT_PRIORITY = 110,
	B_REAL_TIME_PRIORITY = 120
};

// Flags of acquire_sem_etc and release_sem_etc.
enum {
	B_CAN_INTERRUPT = 0x01,
	B_CHECK_PERMISSION = 0x04,
	B_KILL_CAN_INTERRUPT = 0x20,
	B_DO_NOT_RESCHEDULE = 0x02,
	B_RELEASE_ALL = 0x08,
	B_RELEASE_IF_WAITING_ONLY = 0x10,
	B_TIMEOUT = 0x8,
	B_RELATIVE_TIMEOUT = 0x8,
	B_ABSOLUTE_TIMEOUT = 0x10
};

typedef enum {
	B_THREAD_RUNNING = 1,
	B_THREAD_READY,
	B_THREAD_RECEIVING,
	B_THREAD_ASLEEP,
	B_THREAD_SUSPENDED,
	B_THREAD_WAITING
} thread_state;

typedef struct {
	thread_id thread;
	team_id team;
	char name[B_OS_NAME_LENGTH];
	thread_state state;
	int32 priority;
} thread_info;

typedef struct {
	sem_id sem;
	team_id team;
	char name[B_OS_NAME_LENGTH];
	int32 count;
	thread_id latest_holder;
} sem_info;

// Threads. Spawned threads start suspended; resume_thread starts them.
thread_id spawn_thread(thread_func function, const char* name, int32 priority, void* data);
status_t resume_thread(thread_id thread);
status_t wait_for_thread(thread_id thread, status_t* returnValue);
status_t rename_thread(thread_id thread, const char* newName);
status_t set_thread_priority(thread_id thread, int32 newPriority);
// The caller's id with a NULL name, else the id of the spawned thread of that name.
thread_id find_thread(const char* name);
status_t get_thread_info(thread_id thread, thread_info* info);
void exit_thread(status_t status);
team_id current_team();

// Semaphores.
sem_id create_sem(int32 count, const char* name);
status_t delete_sem(sem_id sem);
status_t acquire_sem(sem_id sem);
status_t acquire_sem_etc(sem_id sem, int32 count, uint32 flags, bigtime_t timeout);
status_t release_sem(sem_id sem);
status_t release_sem_etc(sem_id sem, int32 count, uint32 flags);
status_t get_sem_count(sem_id sem, int32* threadCount);
status_t get_sem_info(sem_id sem, sem_info* info);

// Time in microseconds since an arbitrary start.
bigtime_t system_time();
status_t snooze(bigtime_t microseconds);
status_t snooze_until(bigtime_t time, int timeBase);
// Seconds since 1970.
uint32 real_time_clock();

#define B_SYSTEM_TIMEBASE 0

#endif
