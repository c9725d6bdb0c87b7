#ifndef _LOOPER_REGISTRY_H
#define _LOOPER_REGISTRY_H

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include <Locker.h>
#include <OS.h>

class BHandler;
class BLooper;
class BMessage;

namespace BPrivate {

// What outlives a looper: its lock, so that a messenger may wait for the lock of a
// looper that is being deleted and then learn that it is gone.
struct LooperRecord {
	BLocker lock;
	BLooper* looper = nullptr;
	port_id port = -1;
	bool alive = true;		// guarded by lock
	thread_id thread = -1;	// guarded by the registry
	bool accepting = true;	// guarded by the registry
};

// Every looper (by its port id) and every handler (by its token) of the team.
class LooperRegistry {
public:
	static LooperRegistry& Default();

	std::shared_ptr<LooperRecord> AddLooper(BLooper* looper);
	void RemoveLooper(port_id port);
	std::shared_ptr<LooperRecord> FindLooper(port_id port);
	BLooper* LooperForThread(thread_id thread);
	void SetThread(port_id port, thread_id thread);
	thread_id ThreadOf(port_id port);
	bool IsAccepting(port_id port);
	// The record of a looper that still exists, found by its address.
	std::shared_ptr<LooperRecord> RecordOf(const BLooper* looper);
	std::vector<BLooper*> Loopers();

	int32 AddHandler(BHandler* handler);
	void RemoveHandler(int32 token);
	BHandler* FindHandler(int32 token);

	// Queues message (taking ownership) with the looper of port; B_BAD_PORT_ID
	// (and the message deleted) when that looper is gone or has quit.
	status_t Post(port_id port, BMessage* message);
	// Refuses further messages for port.
	void Close(port_id port);

private:
	std::mutex fLock;
	std::map<port_id, std::shared_ptr<LooperRecord>> fLoopers;
	std::map<int32, BHandler*> fHandlers;
	port_id fNextPort = 1;
	int32 fNextToken = 1;
};

}

#endif
