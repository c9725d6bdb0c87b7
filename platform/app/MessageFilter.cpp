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
