#include <Messenger.h>

#include <Application.h>
#include <Looper.h>

#include <strings.h>

#include <tuple>

#include "LooperRegistry.h"
#include "MessagePrivate.h"
#include "ReplyState.h"
#include "TrackerBridge.h"

using BPrivate::LooperRegistry;

BMessenger::BMessenger() = default;

BMessenger::BMessenger(const char* signature, team_id team, status_t* result)
{
	status_t status = SetTo(signature, team);
	if (result != nullptr)
		*result = status;
}

BMessenger::BMessenger(const BHandler* handler, const BLooper* looper, status_t* result)
{
	status_t status = SetTo(handler, looper);
	if (result != nullptr)
		*result = status;
}

BMessenger::BMessenger(const BMessenger& other) = default;

BMessenger::~BMessenger() = default;

BMessenger&
BMessenger::operator=(const BMessenger& other) = default;

bool
BMessenger::operator==(const BMessenger& other) const
{
	return fPort == other.fPort && fHandlerToken == other.fHandlerToken;
}

bool
BMessenger::operator<(const BMessenger& other) const
{
	return std::tie(fPort, fHandlerToken) < std::tie(other.fPort, other.fHandlerToken);
}

void
BMessenger::pvSetTo(port_id port, int32 token, team_id team)
{
	fPort = port;
	fHandlerToken = token;
	fTeam = team;
}

status_t
BMessenger::SetTo(const char* signature, team_id team)
{
	pvSetTo(-1, B_NULL_TOKEN, -1);
	if (signature == nullptr)
		return B_BAD_VALUE;
	// This team's application, or the file manager, which answers through a
	// bridge to the desktop's own.
	app_info info;
	if (be_app != nullptr && (team < 0 || team == current_team())
		&& be_app->GetAppInfo(&info) == B_OK && strcasecmp(info.signature, signature) == 0) {
		*this = be_app_messenger;
		return B_OK;
	}
	if (team < 0 && strcasecmp(signature, BPrivate::TrackerBridge::Signature()) == 0) {
		*this = BPrivate::TrackerBridge::Messenger();
		return B_OK;
	}
	return B_BAD_VALUE;
}

status_t
BMessenger::SetTo(const BHandler* handler, const BLooper* looper)
{
	pvSetTo(-1, B_NULL_TOKEN, -1);
	if (handler == nullptr && looper == nullptr)
		return B_BAD_VALUE;
	if (handler == nullptr) {
		pvSetTo(looper->pvPort(), B_PREFERRED_TOKEN, current_team());
		return B_OK;
	}
	BLooper* owner = handler->Looper();
	if (owner == nullptr)
		return B_BAD_HANDLER;
	if (looper != nullptr && looper != owner)
		return B_MISMATCHED_VALUES;
	pvSetTo(owner->pvPort(), handler->pvToken(), current_team());
	return B_OK;
}

bool
BMessenger::IsTargetLocal() const
{
	return fPort >= 0;
}

BHandler*
BMessenger::Target(BLooper** looper) const
{
	auto record = LooperRegistry::Default().FindLooper(fPort);
	if (looper != nullptr)
		*looper = record != nullptr ? record->looper : nullptr;
	if (record == nullptr || fHandlerToken == B_PREFERRED_TOKEN)
		return nullptr;
	return LooperRegistry::Default().FindHandler(fHandlerToken);
}

bool
BMessenger::LockTarget() const
{
	return LockTargetWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t
BMessenger::LockTargetWithTimeout(bigtime_t timeout) const
{
	auto record = LooperRegistry::Default().FindLooper(fPort);
	if (record == nullptr)
		return B_BAD_PORT_ID;
	status_t status = record->lock.LockWithTimeout(timeout);
	if (status != B_OK)
		return status;
	if (!record->alive) {
		record->lock.Unlock();
		return B_BAD_PORT_ID;
	}
	return B_OK;
}

bool
BMessenger::IsValid() const
{
	return LooperRegistry::Default().IsAccepting(fPort);
}

status_t
BMessenger::pvDeliver(const BMessage* message, const BMessenger* returnAddress,
	std::shared_ptr<BPrivate::ReplyState> channel) const
{
	if (message == nullptr)
		return B_BAD_VALUE;
	if (fPort < 0)
		return B_BAD_PORT_ID;
	BMessage* copy = new BMessage(*message);
	BPrivate::MessageAccess::SetTarget(copy, fHandlerToken);
	BPrivate::MessageAccess::SetReturnAddress(copy,
		returnAddress != nullptr && returnAddress->fPort >= 0 ? returnAddress : nullptr);
	BPrivate::MessageAccess::SetReplyState(copy, std::move(channel));
	return LooperRegistry::Default().Post(fPort, copy);
}

status_t
BMessenger::SendMessage(uint32 command, BHandler* replyTo) const
{
	BMessage message(command);
	return SendMessage(&message, replyTo);
}

status_t
BMessenger::SendMessage(BMessage* message, BHandler* replyTo, bigtime_t timeout) const
{
	BMessenger returnAddress = replyTo != nullptr ? BMessenger(replyTo) : be_app_messenger;
	return SendMessage(message, returnAddress, timeout);
}

status_t
BMessenger::SendMessage(BMessage* message, BMessenger replyTo, bigtime_t) const
{
	// A local queue takes messages at once, so delivery never waits.
	return pvDeliver(message, &replyTo, nullptr);
}

status_t
BMessenger::SendMessage(uint32 command, BMessage* reply) const
{
	BMessage message(command);
	return SendMessage(&message, reply);
}

status_t
BMessenger::SendMessage(BMessage* message, BMessage* reply, bigtime_t,
	bigtime_t replyTimeout) const
{
	if (message == nullptr || reply == nullptr)
		return B_BAD_VALUE;
	// The target's own thread would wait for itself.
	if (LooperRegistry::Default().ThreadOf(fPort) == find_thread(nullptr))
		return B_MESSAGE_TO_SELF;
	auto state = std::make_shared<BPrivate::ReplyState>();
	status_t status = pvDeliver(message, nullptr,
		state);
	if (status != B_OK)
		return status;
	return state->Wait(replyTimeout, reply);
}
