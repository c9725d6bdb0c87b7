#include <Looper.h>

#include <AppDefs.h>
#include <MessageFilter.h>
#include <Messenger.h>

#include "LooperRegistry.h"
#include "MessagePrivate.h"

using BPrivate::LooperRegistry;
using BPrivate::MessageAccess;

namespace {

// Answered by the loop itself, whatever the filters and handlers: an idle wait.
const uint32 kIdlePing = '_IDP';

}	// namespace

BLooper::BLooper(const char* name, int32 priority, int32)
	: BHandler(name),
	fQueue(std::make_unique<BMessageQueue>()),
	fQueueSem(create_sem(0, "looper queue")),
	fPriority(priority)
{
	fRecord = LooperRegistry::Default().AddLooper(this);
	fRecord->lock.Lock();
	AddHandler(this);
}

BLooper::~BLooper()
{
	std::shared_ptr<BPrivate::LooperRecord> record = fRecord;
	record->lock.Lock();
	record->alive = false;
	LooperRegistry::Default().RemoveLooper(record->port);
	pvDiscardQueue();
	delete fCurrentMessage;
	fCurrentMessage = nullptr;

	for (int32 i = fHandlers.CountItems() - 1; i >= 0; i--)
		static_cast<BHandler*>(fHandlers.ItemAt(i))->pvSetLooper(nullptr);
	fHandlers.MakeEmpty();
	SetCommonFilterList(nullptr);
	delete_sem(fQueueSem);
	while (record->lock.IsLocked())
		record->lock.Unlock();
}

// #pragma mark - posting

status_t
BLooper::PostMessage(uint32 command)
{
	BMessage message(command);
	return pvPost(&message, this, nullptr);
}

status_t
BLooper::PostMessage(BMessage* message)
{
	return pvPost(message, this, nullptr);
}

status_t
BLooper::PostMessage(uint32 command, BHandler* handler, BHandler* replyTo)
{
	BMessage message(command);
	return pvPost(&message, handler, replyTo);
}

status_t
BLooper::PostMessage(BMessage* message, BHandler* handler, BHandler* replyTo)
{
	return pvPost(message, handler, replyTo);
}

status_t
BLooper::pvPost(BMessage* message, BHandler* handler, BHandler* replyTo)
{
	if (message == nullptr)
		return B_BAD_VALUE;
	if (handler != nullptr && handler->Looper() != this)
		return B_MISMATCHED_VALUES;
	BMessenger target(handler, this);
	return target.SendMessage(message, replyTo);
}

void
BLooper::pvEnqueue(BMessage* message)
{
	fQueue->AddMessage(message);
	release_sem(fQueueSem);
}

void
BLooper::pvEnqueueFirst(BMessage* message)
{
	fQueue->pvAddFirst(message);
	release_sem(fQueueSem);
}

void
BLooper::pvDiscardQueue()
{
	// Deleting an unanswered message tells a waiting sender B_NO_REPLY.
	while (BMessage* message = fQueue->NextMessage())
		delete message;
}

port_id
BLooper::pvPort() const
{
	return fRecord->port;
}

// #pragma mark - the message loop

thread_id
BLooper::Run()
{
	if (fRunCalled)
		return B_ALREADY_RUNNING;
	fThread = spawn_thread(pvThreadEntry, Name() != nullptr ? Name() : "looper", fPriority,
		this);
	if (fThread < 0)
		return fThread;
	LooperRegistry::Default().SetThread(fRecord->port, fThread);
	fRunCalled = true;
	thread_id thread = fThread;
	Unlock();
	resume_thread(thread);
	return thread;
}

status_t
BLooper::pvThreadEntry(void* looper)
{
	static_cast<BLooper*>(looper)->pvLoop();
	return B_OK;
}

void
BLooper::pvLoop()
{
	while (acquire_sem(fQueueSem) == B_OK) {
		// The message leaves the queue under the lock: whoever holds the lock
		// and finds the queue empty knows that nothing is waiting to dispatch.
		fRecord->lock.Lock();
		BMessage* message = fQueue->NextMessage();
		if (message == nullptr) {
			fRecord->lock.Unlock();
			continue;
		}
		if (message->what == _QUIT_) {
			delete message;
			fTerminating = true;
		} else
			pvDispatch(message);
		if (fTerminating)
			break;
		fRecord->lock.Unlock();
	}
	pvLoopEnded();
}

void
BLooper::pvLoopEnded()
{
	LooperRegistry::Default().Close(fRecord->port);
	pvDiscardQueue();
	if (fDeleteOnQuit) {
		delete this;
		return;
	}
	while (fRecord->lock.IsLocked())
		fRecord->lock.Unlock();
}

void
BLooper::pvDispatch(BMessage* message)
{
	MessageAccess::MarkDelivered(message);
	fCurrentMessage = message;
	if (message->what == kIdlePing)
		message->SendReply(B_REPLY);
	else {
		BHandler* target = pvTopLevelFilter(message, pvTargetFor(message));
		if (target != nullptr)
			DispatchMessage(message, target);
	}
	DispatchMessageDone();
	delete fCurrentMessage;
	fCurrentMessage = nullptr;
}

BHandler*
BLooper::pvTargetFor(BMessage* message)
{
	int32 token = MessageAccess::TargetToken(message);
	BHandler* target = this;
	if (token == B_PREFERRED_TOKEN)
		target = fPreferred != nullptr ? fPreferred : this;
	else if (token != B_NULL_TOKEN)
		target = LooperRegistry::Default().FindHandler(token);
	if (target == nullptr || target->Looper() != this)
		return nullptr;

	// A scripting message is passed along the handlers that resolve its specifiers.
	while (message->HasSpecifiers()) {
		int32 index, what;
		BMessage specifier;
		const char* property;
		if (message->GetCurrentSpecifier(&index, &specifier, &what, &property) != B_OK)
			return nullptr;
		BHandler* next = target->ResolveSpecifier(message, index, &specifier, what, property);
		if (next == nullptr || next == target)
			return next;
		target = next;
	}
	return target;
}

BHandler*
BLooper::pvApplyFilters(BList* filters, BMessage* message, BHandler* target)
{
	for (int32 i = 0; target != nullptr && i < filters->CountItems(); i++) {
		auto filter = static_cast<BMessageFilter*>(filters->ItemAt(i));
		if (filter->pvApplies(message) && filter->pvRun(message, &target) == B_SKIP_MESSAGE)
			return nullptr;
	}
	return target;
}

BHandler*
BLooper::pvTopLevelFilter(BMessage* message, BHandler* target)
{
	if (target != nullptr && fCommonFilters != nullptr)
		target = pvApplyFilters(fCommonFilters, message, target);
	// The handler filters of each new target run in turn.
	BHandler* filtered = nullptr;
	while (target != nullptr && target != filtered && target->Looper() == this) {
		filtered = target;
		if (target->fFilters != nullptr)
			target = pvApplyFilters(target->fFilters, message, target);
	}
	return target != nullptr && target->Looper() == this ? target : nullptr;
}

void
BLooper::DispatchMessage(BMessage* message, BHandler* handler)
{
	if (message->what == B_QUIT_REQUESTED && handler == this)
		pvQuitRequested(message);
	else
		handler->MessageReceived(message);
}

void
BLooper::pvQuitRequested(BMessage* message)
{
	bool quit = QuitRequested();
	if (message->IsSourceWaiting()) {
		BMessage reply(B_REPLY);
		reply.AddBool("result", quit);
		message->SendReply(&reply);
	}
	if (quit)
		Quit();
}

void
BLooper::MessageReceived(BMessage* message)
{
	BHandler::MessageReceived(message);
}

void
BLooper::DispatchMessageDone()
{
}

BMessage*
BLooper::CurrentMessage() const
{
	return fCurrentMessage;
}

BMessage*
BLooper::DetachCurrentMessage()
{
	BMessage* message = fCurrentMessage;
	fCurrentMessage = nullptr;
	return message;
}

BMessageQueue*
BLooper::MessageQueue() const
{
	return fQueue.get();
}

bool
BLooper::IsMessageWaiting() const
{
	return !fQueue->IsEmpty();
}

// #pragma mark - handlers

void
BLooper::AddHandler(BHandler* handler)
{
	if (handler == nullptr || handler->Looper() != nullptr)
		return;
	fHandlers.AddItem(handler);
	handler->pvSetLooper(this);
}

bool
BLooper::RemoveHandler(BHandler* handler)
{
	if (handler == nullptr || handler == this || handler->Looper() != this)
		return false;
	fHandlers.RemoveItem(handler);
	handler->pvSetLooper(nullptr);
	handler->SetNextHandler(nullptr);
	if (fPreferred == handler)
		fPreferred = nullptr;
	return true;
}

int32
BLooper::CountHandlers() const
{
	return fHandlers.CountItems();
}

BHandler*
BLooper::HandlerAt(int32 index) const
{
	return static_cast<BHandler*>(fHandlers.ItemAt(index));
}

int32
BLooper::IndexOf(BHandler* handler) const
{
	return fHandlers.IndexOf(handler);
}

BHandler*
BLooper::PreferredHandler() const
{
	return fPreferred;
}

void
BLooper::SetPreferredHandler(BHandler* handler)
{
	fPreferred = handler != nullptr && handler->Looper() == this ? handler : nullptr;
}

// #pragma mark - quitting

void
BLooper::Quit()
{
	if (!fRunCalled) {
		delete this;
		return;
	}
	if (find_thread(nullptr) == fThread) {
		fTerminating = true;
		return;
	}
	// Another thread, holding the lock: hand the quit to the loop and wait for it.
	std::shared_ptr<BPrivate::LooperRecord> record = fRecord;
	thread_id thread = fThread;
	PostMessage(_QUIT_);
	while (record->lock.IsLocked())
		record->lock.Unlock();
	wait_for_thread(thread, nullptr);
}

bool
BLooper::QuitRequested()
{
	return true;
}

// #pragma mark - locking

bool
BLooper::Lock()
{
	return LockWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t
BLooper::LockWithTimeout(bigtime_t timeout)
{
	// The looper may be gone: find its record by address first.
	auto record = LooperRegistry::Default().RecordOf(this);
	if (record == nullptr)
		return B_BAD_VALUE;
	status_t status = record->lock.LockWithTimeout(timeout);
	if (status == B_OK && !record->alive) {
		record->lock.Unlock();
		return B_BAD_VALUE;
	}
	return status;
}

void
BLooper::Unlock()
{
	fRecord->lock.Unlock();
}

bool
BLooper::IsLocked() const
{
	return fRecord->lock.IsLocked();
}

thread_id
BLooper::Thread() const
{
	return fThread;
}

team_id
BLooper::Team() const
{
	return current_team();
}

BLooper*
BLooper::LooperForThread(thread_id thread)
{
	return LooperRegistry::Default().LooperForThread(thread);
}

thread_id
BLooper::LockingThread() const
{
	return fRecord->lock.LockingThread();
}

int32
BLooper::CountLocks() const
{
	return fRecord->lock.CountLocks();
}

int32
BLooper::CountLockRequests() const
{
	return fRecord->lock.CountLockRequests();
}

sem_id
BLooper::Sem() const
{
	return fRecord->lock.Sem();
}

BHandler*
BLooper::ResolveSpecifier(BMessage* message, int32 index, BMessage* specifier, int32 what,
	const char* property)
{
	return BHandler::ResolveSpecifier(message, index, specifier, what, property);
}

// #pragma mark - common filters

void
BLooper::AddCommonFilter(BMessageFilter* filter)
{
	BMessageFilter::pvAddTo(fCommonFilters, filter, this);
}

bool
BLooper::RemoveCommonFilter(BMessageFilter* filter)
{
	return BMessageFilter::pvRemoveFrom(fCommonFilters, filter);
}

void
BLooper::SetCommonFilterList(BList* filters)
{
	BMessageFilter::pvReplaceList(fCommonFilters, filters, this);
}

BList*
BLooper::CommonFilterList() const
{
	return fCommonFilters;
}

// #pragma mark - idle wait

namespace BPrivate {

status_t
WaitForLooperIdle(BLooper* looper, bigtime_t timeout)
{
	if (looper == nullptr)
		return B_BAD_VALUE;
	BMessenger messenger(looper);
	BMessage ping(kIdlePing);
	BMessage reply;
	status_t status = messenger.SendMessage(&ping, &reply, B_INFINITE_TIMEOUT, timeout);
	if (status != B_OK)
		return status;
	return reply.what == B_REPLY ? B_OK : static_cast<status_t>(B_BAD_PORT_ID);
}

}
