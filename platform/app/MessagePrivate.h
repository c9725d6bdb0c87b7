#ifndef _MESSAGE_PRIVATE_H
#define _MESSAGE_PRIVATE_H

#include <Message.h>

namespace BPrivate {

// What the platform, not programs, sets on a message.
class MessageAccess {
public:
	// Marks message as dropped at where (screen coordinates), grabbed at offset.
	static void SetDropped(BMessage* message, BPoint where, BPoint offset);
	// The token of the handler a messenger addressed (B_PREFERRED_TOKEN,
	// B_NULL_TOKEN for the looper itself, or a handler's token).
	static int32 TargetToken(const BMessage* message);
	static void SetTarget(BMessage* message, int32 token);
	static void SetReturnAddress(BMessage* message, const BMessenger* address);
	static void SetReplyState(BMessage* message, std::shared_ptr<ReplyState> channel);
	static void MarkDelivered(BMessage* message);
	// Unflattens a message nested depth levels deep in another.
	static status_t Unflatten(BMessage* message, const uint8* data, size_t size, int depth);
};

}

#endif
