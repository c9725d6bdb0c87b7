#include <Clipboard.h>

#include <Application.h>

#include "ClipboardStore.h"

using BPrivate::ClipboardStore;

BClipboard* be_clipboard = nullptr;

BClipboard::BClipboard(const char* name, bool)
	: fName(name != nullptr ? name : "system"),
	fData(std::make_unique<BMessage>()),
	fLock("clipboard")
{
}

BClipboard::~BClipboard()
{
}

uint32
BClipboard::SystemCount() const
{
	return ClipboardStore::Default().Count(fName);
}

status_t
BClipboard::StartWatching(BMessenger target)
{
	return ClipboardStore::Default().StartWatching(fName, target);
}

status_t
BClipboard::StopWatching(BMessenger target)
{
	return ClipboardStore::Default().StopWatching(fName, target);
}

bool
BClipboard::Lock()
{
	if (!fLock.Lock())
		return false;
	// A nested lock keeps what the outer one is working on.
	if (fLock.CountLocks() == 1)
		pvFetch();
	return true;
}

void
BClipboard::Unlock()
{
	fLock.Unlock();
}

bool
BClipboard::IsLocked() const
{
	return fLock.IsLocked();
}

status_t
BClipboard::Clear()
{
	if (!IsLocked())
		return B_NOT_ALLOWED;
	fData->MakeEmpty();
	fData->what = 0;
	return B_OK;
}

status_t
BClipboard::Commit()
{
	return Commit(false);
}

status_t
BClipboard::Commit(bool failIfChanged)
{
	if (!IsLocked())
		return B_NOT_ALLOWED;
	BMessenger source = be_app_messenger;
	status_t status = ClipboardStore::Default().Put(fName, *fData, source, fCount,
		failIfChanged, &fCount);
	if (status == B_OK)
		fDataSource = source;
	return status;
}

status_t
BClipboard::Revert()
{
	if (!IsLocked())
		return B_NOT_ALLOWED;
	pvFetch();
	return B_OK;
}

BMessage*
BClipboard::Data() const
{
	return IsLocked() ? fData.get() : nullptr;
}

void
BClipboard::pvFetch()
{
	ClipboardStore::Default().Get(fName, fData.get(), &fCount, &fDataSource);
}
