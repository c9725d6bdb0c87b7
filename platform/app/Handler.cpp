#include <Handler.h>

#include <Looper.h>
#include <Message.h>
#include <MessageFilter.h>

#include "LooperRegistry.h"

using BPrivate::LooperRegistry;

BHandler::BHandler(const char* name)
	: fToken(LooperRegistry::Default().AddHandler(this))
{
	SetName(name);
}

BHandler::~BHandler()
{
	if (fLooper != nullptr && fLooper != this)
		fLooper->RemoveHandler(this);
	BMessageFilter::pvReplaceList(fFilters, nullptr, nullptr);
	LooperRegistry::Default().RemoveHandler(fToken);
}

void
BHandler::MessageReceived(BMessage* message)
{
	if (fNextHandler != nullptr) {
		fNextHandler->MessageReceived(message);
		return;
	}
	if (message->IsSourceWaiting())
		message->SendReply(B_MESSAGE_NOT_UNDERSTOOD);
}

BLooper*
BHandler::Looper() const
{
	return fLooper;
}

void
BHandler::SetName(const char* name)
{
	fNamed = name != nullptr;
	fName = fNamed ? name : "";
}

const char*
BHandler::Name() const
{
	return fNamed ? fName.c_str() : nullptr;
}

void
BHandler::SetNextHandler(BHandler* handler)
{
	fNextHandler = handler;
}

BHandler*
BHandler::NextHandler() const
{
	return fNextHandler;
}

void
BHandler::AddFilter(BMessageFilter* filter)
{
	BMessageFilter::pvAddTo(fFilters, filter, fLooper);
}

bool
BHandler::RemoveFilter(BMessageFilter* filter)
{
	return BMessageFilter::pvRemoveFrom(fFilters, filter);
}

void
BHandler::SetFilterList(BList* filters)
{
	BMessageFilter::pvReplaceList(fFilters, filters, fLooper);
}

BList*
BHandler::FilterList()
{
	return fFilters;
}

void
BHandler::pvSetLooper(BLooper* looper)
{
	fLooper = looper;
	BMessageFilter::pvSetLooper(fFilters, looper);
}

bool
BHandler::LockLooper()
{
	return LockLooperWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t
BHandler::LockLooperWithTimeout(bigtime_t timeout)
{
	BLooper* looper = fLooper;
	if (looper == nullptr)
		return B_BAD_VALUE;
	status_t status = looper->LockWithTimeout(timeout);
	if (status == B_OK && fLooper != looper) {
		// The handler moved while we waited.
		looper->Unlock();
		return B_MISMATCHED_VALUES;
	}
	return status;
}

void
BHandler::UnlockLooper()
{
	if (fLooper != nullptr)
		fLooper->Unlock();
}

BHandler*
BHandler::ResolveSpecifier(BMessage* message, int32, BMessage*, int32, const char*)
{
	// A plain handler knows no properties.
	BMessage reply(B_MESSAGE_NOT_UNDERSTOOD);
	reply.AddInt32("error", B_BAD_SCRIPT_SYNTAX);
	reply.AddString("message", "Didn't understand the specifier(s)");
	message->SendReply(&reply);
	return nullptr;
}
