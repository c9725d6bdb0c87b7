#ifndef _MESSAGE_FILTER_H
#define _MESSAGE_FILTER_H

#include <Handler.h>
#include <List.h>

class BMessage;

enum filter_result {
	B_SKIP_MESSAGE,
	B_DISPATCH_MESSAGE
};

class BMessageFilter;
typedef filter_result (*filter_hook)(BMessage* message, BHandler** target,
	BMessageFilter* filter);

enum message_delivery {
	B_ANY_DELIVERY,
	B_DROPPED_DELIVERY,
	B_PROGRAMMED_DELIVERY
};

enum message_source {
	B_ANY_SOURCE,
	B_REMOTE_SOURCE,
	B_LOCAL_SOURCE
};

// Looks at messages before they are dispatched: a filter may let a message
// through, drop it, or change the handler it goes to. It applies only to messages
// of its command (unless it filters any command), delivery and source.
class BMessageFilter {
public:
	BMessageFilter(uint32 what, filter_hook func = NULL);
	BMessageFilter(message_delivery delivery, message_source source,
		filter_hook func = NULL);
	BMessageFilter(message_delivery delivery, message_source source, uint32 what,
		filter_hook func = NULL);
	BMessageFilter(const BMessageFilter& filter);
	BMessageFilter(const BMessageFilter* filter);
	virtual ~BMessageFilter();

	BMessageFilter& operator=(const BMessageFilter& from);

	// The hook when no filter function was given. The default dispatches.
	virtual filter_result Filter(BMessage* message, BHandler** target);

	message_delivery MessageDelivery() const { return fDelivery; }
	message_source MessageSource() const { return fSource; }
	uint32 Command() const { return fWhat; }
	bool FiltersAnyCommands() const { return fFiltersAny; }
	BLooper* Looper() const { return fLooper; }

private:
	friend class BLooper;
	friend class BHandler;

	bool pvApplies(const BMessage* message) const;
	filter_result pvRun(BMessage* message, BHandler** target);
	void pvSetLooper(BLooper* looper) { fLooper = looper; }

	// The filter lists of handlers and loopers; a list owns its filters.
	static void pvAddTo(BList*& list, BMessageFilter* filter, BLooper* looper);
	static bool pvRemoveFrom(BList* list, BMessageFilter* filter);
	static void pvReplaceList(BList*& list, BList* filters, BLooper* looper);
	static void pvSetLooper(BList* list, BLooper* looper);

	uint32 fWhat = 0;
	bool fFiltersAny = true;
	message_delivery fDelivery = B_ANY_DELIVERY;
	message_source fSource = B_ANY_SOURCE;
	BLooper* fLooper = nullptr;
	filter_hook fFilterFunction = nullptr;
};

#endif
