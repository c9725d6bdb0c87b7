#ifndef _MESSAGE_H
#define _MESSAGE_H

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <AppDefs.h>
#include <Entry.h>
#include <OS.h>
#include <Point.h>
#include <Rect.h>
#include <String.h>
#include <TypeConstants.h>

class BHandler;
class BLooper;
class BMessenger;

namespace BPrivate {
class ReplyState;
class MessageAccess;
}

// Specifier kinds used by scripting messages.
enum {
	B_NO_SPECIFIER = 0,
	B_DIRECT_SPECIFIER = 1,
	B_INDEX_SPECIFIER,
	B_REVERSE_INDEX_SPECIFIER,
	B_RANGE_SPECIFIER,
	B_REVERSE_RANGE_SPECIFIER,
	B_NAME_SPECIFIER,
	B_ID_SPECIFIER,

	B_SPECIFIERS_END = 128
};

#define B_FIELD_NAME_LENGTH 255
#define B_PROPERTY_NAME_LENGTH 255

// A message: a command code ("what") and any number of named fields, each holding
// one or more items of a single type. Items are found by name and index.
//
// A delivered message whose sender waits for a reply shares that wait with its
// copies: the first SendReply() answers, later ones give B_DUPLICATE_REPLY, and
// deleting a message (or copy) that was not answered sends B_NO_REPLY. To answer
// later, keep the message itself (BLooper::DetachCurrentMessage).
class BMessage {
public:
	uint32 what;

	BMessage();
	BMessage(uint32 what);
	BMessage(const BMessage& other);
	virtual ~BMessage();

	BMessage& operator=(const BMessage& other);

	// Fields
	status_t GetInfo(type_code typeRequested, int32 index, char** nameFound,
		type_code* typeFound, int32* countFound = NULL) const;
	status_t GetInfo(type_code typeRequested, int32 index, const char** nameFound,
		type_code* typeFound, int32* countFound = NULL) const;
	status_t GetInfo(const char* name, type_code* typeFound, int32* countFound = NULL) const;
	status_t GetInfo(const char* name, type_code* typeFound, bool* fixedSize) const;
	status_t GetInfo(const char* name, type_code* typeFound, int32* countFound,
		bool* fixedSize) const;
	int32 CountNames(type_code type) const;
	bool IsEmpty() const;
	void MakeEmpty();
	bool HasSameData(const BMessage& other) const;
	void PrintToStream() const;

	status_t Rename(const char* oldName, const char* newName);

	// Drops
	bool WasDropped() const;
	BPoint DropPoint(BPoint* offset = NULL) const;

	// Replies
	status_t SendReply(uint32 command, BHandler* replyTo = NULL);
	status_t SendReply(BMessage* reply, BHandler* replyTo = NULL,
		bigtime_t timeout = B_INFINITE_TIMEOUT);
	status_t SendReply(BMessage* reply, BMessenger replyTo,
		bigtime_t timeout = B_INFINITE_TIMEOUT);
	status_t SendReply(uint32 command, BMessage* replyToReply);
	status_t SendReply(BMessage* reply, BMessage* replyToReply,
		bigtime_t sendTimeout = B_INFINITE_TIMEOUT,
		bigtime_t replyTimeout = B_INFINITE_TIMEOUT);

	BMessenger ReturnAddress() const;
	const BMessage* Previous() const;
	bool WasDelivered() const;
	bool IsSourceWaiting() const;
	bool IsSourceRemote() const;
	bool IsReply() const;

	// Flattening (the format is described in Message.cpp)
	ssize_t FlattenedSize() const;
	status_t Flatten(char* buffer, ssize_t size) const;
	status_t Unflatten(const char* flatBuffer);
	status_t Unflatten(const char* flatBuffer, ssize_t size);

	// Scripting
	status_t AddSpecifier(const char* property);
	status_t AddSpecifier(const char* property, int32 index);
	status_t AddSpecifier(const char* property, int32 index, int32 range);
	status_t AddSpecifier(const char* property, const char* name);
	status_t AddSpecifier(const BMessage* specifier);
	status_t SetCurrentSpecifier(int32 index);
	status_t GetCurrentSpecifier(int32* index, BMessage* specifier = NULL,
		int32* what = NULL, const char** property = NULL) const;
	bool HasSpecifiers() const;
	status_t PopSpecifier();

	// Adding data
	status_t AddRect(const char* name, BRect rect);
	status_t AddPoint(const char* name, BPoint point);
	status_t AddString(const char* name, const char* string);
	status_t AddString(const char* name, const BString& string);
	status_t AddInt8(const char* name, int8 value);
	status_t AddUInt8(const char* name, uint8 value);
	status_t AddInt16(const char* name, int16 value);
	status_t AddUInt16(const char* name, uint16 value);
	status_t AddInt32(const char* name, int32 value);
	status_t AddUInt32(const char* name, uint32 value);
	status_t AddInt64(const char* name, int64 value);
	status_t AddUInt64(const char* name, uint64 value);
	status_t AddBool(const char* name, bool value);
	status_t AddFloat(const char* name, float value);
	status_t AddDouble(const char* name, double value);
	status_t AddPointer(const char* name, const void* pointer);
	status_t AddMessenger(const char* name, BMessenger messenger);
	status_t AddRef(const char* name, const entry_ref* ref);
	status_t AddMessage(const char* name, const BMessage* message);
	status_t AddData(const char* name, type_code type, const void* data,
		ssize_t numBytes, bool isFixedSize = true, int32 count = 1);

	// Removing data
	status_t RemoveData(const char* name, int32 index = 0);
	status_t RemoveName(const char* name);

	// Finding data
	status_t FindRect(const char* name, BRect* rect) const;
	status_t FindRect(const char* name, int32 index, BRect* rect) const;
	status_t FindPoint(const char* name, BPoint* point) const;
	status_t FindPoint(const char* name, int32 index, BPoint* point) const;
	status_t FindString(const char* name, const char** string) const;
	status_t FindString(const char* name, int32 index, const char** string) const;
	status_t FindString(const char* name, BString* string) const;
	status_t FindString(const char* name, int32 index, BString* string) const;
	status_t FindInt8(const char* name, int8* value) const;
	status_t FindInt8(const char* name, int32 index, int8* value) const;
	status_t FindUInt8(const char* name, uint8* value) const;
	status_t FindUInt8(const char* name, int32 index, uint8* value) const;
	status_t FindInt16(const char* name, int16* value) const;
	status_t FindInt16(const char* name, int32 index, int16* value) const;
	status_t FindUInt16(const char* name, uint16* value) const;
	status_t FindUInt16(const char* name, int32 index, uint16* value) const;
	status_t FindInt32(const char* name, int32* value) const;
	status_t FindInt32(const char* name, int32 index, int32* value) const;
	status_t FindUInt32(const char* name, uint32* value) const;
	status_t FindUInt32(const char* name, int32 index, uint32* value) const;
	status_t FindInt64(const char* name, int64* value) const;
	status_t FindInt64(const char* name, int32 index, int64* value) const;
	status_t FindUInt64(const char* name, uint64* value) const;
	status_t FindUInt64(const char* name, int32 index, uint64* value) const;
	status_t FindBool(const char* name, bool* value) const;
	status_t FindBool(const char* name, int32 index, bool* value) const;
	status_t FindFloat(const char* name, float* value) const;
	status_t FindFloat(const char* name, int32 index, float* value) const;
	status_t FindDouble(const char* name, double* value) const;
	status_t FindDouble(const char* name, int32 index, double* value) const;
	status_t FindPointer(const char* name, void** pointer) const;
	status_t FindPointer(const char* name, int32 index, void** pointer) const;
	status_t FindMessenger(const char* name, BMessenger* messenger) const;
	status_t FindMessenger(const char* name, int32 index, BMessenger* messenger) const;
	status_t FindRef(const char* name, entry_ref* ref) const;
	status_t FindRef(const char* name, int32 index, entry_ref* ref) const;
	status_t FindMessage(const char* name, BMessage* message) const;
	status_t FindMessage(const char* name, int32 index, BMessage* message) const;
	status_t FindData(const char* name, type_code type, const void** data,
		ssize_t* numBytes) const;
	status_t FindData(const char* name, type_code type, int32 index,
		const void** data, ssize_t* numBytes) const;

	// Replacing data
	status_t ReplaceRect(const char* name, BRect rect);
	status_t ReplaceRect(const char* name, int32 index, BRect rect);
	status_t ReplacePoint(const char* name, BPoint point);
	status_t ReplacePoint(const char* name, int32 index, BPoint point);
	status_t ReplaceString(const char* name, const char* string);
	status_t ReplaceString(const char* name, int32 index, const char* string);
	status_t ReplaceString(const char* name, const BString& string);
	status_t ReplaceString(const char* name, int32 index, const BString& string);
	status_t ReplaceInt8(const char* name, int8 value);
	status_t ReplaceInt8(const char* name, int32 index, int8 value);
	status_t ReplaceUInt8(const char* name, uint8 value);
	status_t ReplaceUInt8(const char* name, int32 index, uint8 value);
	status_t ReplaceInt16(const char* name, int16 value);
	status_t ReplaceInt16(const char* name, int32 index, int16 value);
	status_t ReplaceUInt16(const char* name, uint16 value);
	status_t ReplaceUInt16(const char* name, int32 index, uint16 value);
	status_t ReplaceInt32(const char* name, int32 value);
	status_t ReplaceInt32(const char* name, int32 index, int32 value);
	status_t ReplaceUInt32(const char* name, uint32 value);
	status_t ReplaceUInt32(const char* name, int32 index, uint32 value);
	status_t ReplaceInt64(const char* name, int64 value);
	status_t ReplaceInt64(const char* name, int32 index, int64 value);
	status_t ReplaceUInt64(const char* name, uint64 value);
	status_t ReplaceUInt64(const char* name, int32 index, uint64 value);
	status_t ReplaceBool(const char* name, bool value);
	status_t ReplaceBool(const char* name, int32 index, bool value);
	status_t ReplaceFloat(const char* name, float value);
	status_t ReplaceFloat(const char* name, int32 index, float value);
	status_t ReplaceDouble(const char* name, double value);
	status_t ReplaceDouble(const char* name, int32 index, double value);
	status_t ReplacePointer(const char* name, const void* pointer);
	status_t ReplacePointer(const char* name, int32 index, const void* pointer);
	status_t ReplaceMessenger(const char* name, BMessenger messenger);
	status_t ReplaceMessenger(const char* name, int32 index, BMessenger messenger);
	status_t ReplaceRef(const char* name, const entry_ref* ref);
	status_t ReplaceRef(const char* name, int32 index, const entry_ref* ref);
	status_t ReplaceMessage(const char* name, const BMessage* message);
	status_t ReplaceMessage(const char* name, int32 index, const BMessage* message);
	status_t ReplaceData(const char* name, type_code type, const void* data,
		ssize_t numBytes);
	status_t ReplaceData(const char* name, type_code type, int32 index,
		const void* data, ssize_t numBytes);

	// Presence
	bool HasRect(const char* name, int32 index = 0) const;
	bool HasPoint(const char* name, int32 index = 0) const;
	bool HasString(const char* name, int32 index = 0) const;
	bool HasInt8(const char* name, int32 index = 0) const;
	bool HasUInt8(const char* name, int32 index = 0) const;
	bool HasInt16(const char* name, int32 index = 0) const;
	bool HasUInt16(const char* name, int32 index = 0) const;
	bool HasInt32(const char* name, int32 index = 0) const;
	bool HasUInt32(const char* name, int32 index = 0) const;
	bool HasInt64(const char* name, int32 index = 0) const;
	bool HasUInt64(const char* name, int32 index = 0) const;
	bool HasBool(const char* name, int32 index = 0) const;
	bool HasFloat(const char* name, int32 index = 0) const;
	bool HasDouble(const char* name, int32 index = 0) const;
	bool HasPointer(const char* name, int32 index = 0) const;
	bool HasMessenger(const char* name, int32 index = 0) const;
	bool HasRef(const char* name, int32 index = 0) const;
	bool HasMessage(const char* name, int32 index = 0) const;
	bool HasData(const char* name, type_code type, int32 index = 0) const;

	// Values with a default for missing fields
	bool GetBool(const char* name, bool defaultValue = false) const;
	int32 GetInt32(const char* name, int32 defaultValue) const;
	int64 GetInt64(const char* name, int64 defaultValue) const;
	float GetFloat(const char* name, float defaultValue) const;
	const char* GetString(const char* name, const char* defaultValue = NULL) const;

private:
	friend class BPrivate::MessageAccess;

	// A field keeps its items back to back; ends[i] is where item i ends.
	struct Field {
		std::string name;
		type_code type;
		bool fixedSize;
		std::vector<uint8> data;
		std::vector<uint32> ends;

		int32 Count() const { return static_cast<int32>(ends.size()); }
		size_t Start(int32 index) const { return index == 0 ? 0 : ends[index - 1]; }
	};

	struct Item {
		const uint8* data;
		size_t size;
	};

	const Field* pvField(const char* name) const;
	status_t pvFindField(const char* name, type_code type, const Field** field) const;
	status_t pvFindItem(const char* name, type_code type, int32 index, Item* item) const;
	status_t pvAddItem(const char* name, type_code type, const void* data, size_t size,
		bool fixedSize);
	status_t pvReplaceItem(const char* name, type_code type, int32 index,
		const void* data, size_t size);
	template<typename T>
	status_t pvFindValue(const char* name, type_code type, int32 index, T* value) const;
	void pvRemoveField(size_t position);
	void pvCopyFields(const BMessage& other);
	status_t pvSendReply(BMessage* reply, const BMessenger* replyTo, bigtime_t sendTimeout,
		BMessage* replyToReply, bigtime_t replyTimeout);
	status_t pvUnflatten(const uint8* data, size_t size, int depth);

	std::vector<Field> fFields;
	std::unordered_map<std::string, size_t> fIndex;

	bool fDropped = false;
	BPoint fDropPoint;
	BPoint fDropOffset;
	int32 fCurrentSpecifier = -1;

	// Delivery: the handler a messenger addressed, the return address,
	// and the channel of a sender waiting for the reply.
	int32 fTargetToken = -1;
	bool fDelivered = false;
	bool fIsReply = false;
	std::unique_ptr<BMessenger> fReturnAddress;
	std::shared_ptr<BPrivate::ReplyState> fReplyState;
	std::unique_ptr<BMessage> fPrevious;
	bool fReplied = false;
	mutable std::unique_ptr<BMessage> fSpecifier;
};

#endif
