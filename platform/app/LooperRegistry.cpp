#include "LooperRegistry.h"

#include <Looper.h>

namespace BPrivate {

LooperRegistry&
LooperRegistry::Default()
{
	// Never destroyed: loopers may still unregister while the program exits.
	static LooperRegistry* registry = new LooperRegistry;
	return *registry;
}

std::shared_ptr<LooperRecord>
LooperRegistry::AddLooper(BLooper* looper)
{
	auto record = std::make_shared<LooperRecord>();
	record->looper = looper;
	std::lock_guard<std::mutex> guard(fLock);
	record->port = fNextPort++;
	fLoopers[record->port] = record;
	return record;
}

void
LooperRegistry::RemoveLooper(port_id port)
{
	std::lock_guard<std::mutex> guard(fLock);
	fLoopers.erase(port);
}

std::shared_ptr<LooperRecord>
LooperRegistry::FindLooper(port_id port)
{
	std::lock_guard<std::mutex> guard(fLock);
	auto found = fLoopers.find(port);
	return found == fLoopers.end() ? nullptr : found->second;
}

BLooper*
LooperRegistry::LooperForThread(thread_id thread)
{
	std::lock_guard<std::mutex> guard(fLock);
	for (auto& [port, record] : fLoopers) {
		if (record->thread == thread)
			return record->looper;
	}
	return nullptr;
}

void
LooperRegistry::SetThread(port_id port, thread_id thread)
{
	std::lock_guard<std::mutex> guard(fLock);
	auto found = fLoopers.find(port);
	if (found != fLoopers.end())
		found->second->thread = thread;
}

thread_id
LooperRegistry::ThreadOf(port_id port)
{
	std::lock_guard<std::mutex> guard(fLock);
	auto found = fLoopers.find(port);
	return found == fLoopers.end() ? B_BAD_PORT_ID : found->second->thread;
}

bool
LooperRegistry::IsAccepting(port_id port)
{
	std::lock_guard<std::mutex> guard(fLock);
	auto found = fLoopers.find(port);
	return found != fLoopers.end() && found->second->accepting;
}

std::shared_ptr<LooperRecord>
LooperRegistry::RecordOf(const BLooper* looper)
{
	std::lock_guard<std::mutex> guard(fLock);
	for (auto& [port, record] : fLoopers) {
		if (record->looper == looper)
			return record;
	}
	return nullptr;
}

std::vector<BLooper*>
LooperRegistry::Loopers()
{
	std::lock_guard<std::mutex> guard(fLock);
	std::vector<BLooper*> loopers;
	for (auto& [port, record] : fLoopers)
		loopers.push_back(record->looper);
	return loopers;
}

int32
LooperRegistry::AddHandler(BHandler* handler)
{
	std::lock_guard<std::mutex> guard(fLock);
	int32 token = fNextToken++;
	fHandlers[token] = handler;
	return token;
}

void
LooperRegistry::RemoveHandler(int32 token)
{
	std::lock_guard<std::mutex> guard(fLock);
	fHandlers.erase(token);
}

BHandler*
LooperRegistry::FindHandler(int32 token)
{
	std::lock_guard<std::mutex> guard(fLock);
	auto found = fHandlers.find(token);
	return found == fHandlers.end() ? nullptr : found->second;
}

status_t
LooperRegistry::Post(port_id port, BMessage* message)
{
	{
		std::lock_guard<std::mutex> guard(fLock);
		auto found = fLoopers.find(port);
		if (found != fLoopers.end() && found->second->accepting) {
			found->second->looper->pvEnqueue(message);
			return B_OK;
		}
	}
	delete message;
	return B_BAD_PORT_ID;
}

void
LooperRegistry::Close(port_id port)
{
	std::lock_guard<std::mutex> guard(fLock);
	auto found = fLoopers.find(port);
	if (found != fLoopers.end())
		found->second->accepting = false;
}

}
