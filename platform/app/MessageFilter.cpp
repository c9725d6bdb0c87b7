#include <MessageFilter.h>

#include <Message.h>

BMessageFilter::BMessageFilter(uint32 what, filter_hook func)
	: fWhat(what), fFiltersAny(false), fFilterFunction(func)
{
}

BMessageFilter::BMessageFilter(message_delivery delivery, message_source source,
	filter_hook func)
	: fDelivery(delivery), fSource(source), fFilterFunction(func)
{
}

BMessageFilter::BMessageFilter(message_delivery delivery, message_source source,
	uint32 what, filter_hook func)
	: fWhat(what), fFiltersAny(false), fDelivery(delivery), fSource(source),
	fFilterFunction(func)
{
}

BMessageFilter::BMessageFilter(const BMessageFilter& filter)
{
	*this = filter;
}

BMessageFilter::BMessageFilter(const BMessageFilter* filter)
{
	*this = *filter;
}

BMessageFilter::~BMessageFilter() = default;

BMessageFilter&
BMessageFilter::operator=(const BMessageFilter& from)
{
	// A copy belongs to no looper yet.
	fWhat = from.fWhat;
	fFiltersAny = from.fFiltersAny;
	fDelivery = from.fDelivery;
	fSource = from.fSource;
	fFilterFunction = from.fFilterFunction;
	return *this;
}

filter_result
BMessageFilter::Filter(BMessage*, BHandler**)
{
	return B_DISPATCH_MESSAGE;
}

bool
BMessageFilter::pvApplies(const BMessage* message) const
{
	if (!fFiltersAny && message->what != fWhat)
		return false;
	// Every message of this system comes from within the team.
	if (fSource == B_REMOTE_SOURCE)
		return false;
	if (fDelivery == B_DROPPED_DELIVERY)
		return message->WasDropped();
	if (fDelivery == B_PROGRAMMED_DELIVERY)
		return !message->WasDropped();
	return true;
}

filter_result
BMessageFilter::pvRun(BMessage* message, BHandler** target)
{
	if (fFilterFunction != nullptr)
		return fFilterFunction(message, target, this);
	return Filter(message, target);
}

void
BMessageFilter::pvAddTo(BList*& list, BMessageFilter* filter, BLooper* looper)
{
	if (filter == nullptr)
		return;
	if (list == nullptr)
		list = new BList;
	filter->pvSetLooper(looper);
	list->AddItem(filter);
}

bool
BMessageFilter::pvRemoveFrom(BList* list, BMessageFilter* filter)
{
	if (list == nullptr || !list->RemoveItem(filter))
		return false;
	filter->pvSetLooper(nullptr);
	return true;
}

void
BMessageFilter::pvReplaceList(BList*& list, BList* filters, BLooper* looper)
{
	if (list != nullptr) {
		for (int32 i = 0; i < list->CountItems(); i++)
			delete static_cast<BMessageFilter*>(list->ItemAt(i));
		delete list;
	}
	list = filters;
	pvSetLooper(list, looper);
}

void
BMessageFilter::pvSetLooper(BList* list, BLooper* looper)
{
	for (int32 i = 0; list != nullptr && i < list->CountItems(); i++)
		static_cast<BMessageFilter*>(list->ItemAt(i))->pvSetLooper(looper);
}
