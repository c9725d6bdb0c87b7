#include "MessagePrivate.h"

#include <Messenger.h>

namespace BPrivate {

void
MessageAccess::SetDropped(BMessage* message, BPoint where, BPoint offset)
{
	message->fDropped = true;
	message->fDropPoint = where;
	message->fDropOffset = offset;
}

int32
MessageAccess::TargetToken(const BMessage* message)
{
	return message->fTargetToken;
}

void
MessageAccess::SetTarget(BMessage* message, int32 token)
{
	message->fTargetToken = token;
}

void
MessageAccess::SetReturnAddress(BMessage* message, const BMessenger* address)
{
	message->fReturnAddress.reset(address != nullptr ? new BMessenger(*address) : nullptr);
}

void
MessageAccess::SetReplyState(BMessage* message, std::shared_ptr<ReplyState> channel)
{
	message->fReplyState = std::move(channel);
}

void
MessageAccess::MarkDelivered(BMessage* message)
{
	message->fDelivered = true;
}

status_t
MessageAccess::Unflatten(BMessage* message, const uint8* data, size_t size, int depth)
{
	return message->pvUnflatten(data, size, depth);
}

}
