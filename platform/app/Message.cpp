// BMessage: typed named fields, flattening, scripting specifiers and replies.
//
// Flattened format (every integer little-endian, floats as IEEE 754 bits):
//
//   header, 24 bytes
//     char[4]  magic "VMF1"
//     uint32   total size of the flattened message, header included
//     uint32   what
//     uint32   flags: bit 0 the message was dropped; no other bit may be set
//     int32    current specifier, -1 for none
//     uint32   number of fields
//   drop information, 16 bytes, only when flag bit 0 is set
//     float32  drop point x, y; drop offset x, y
//   fields, in the order they were added; names are unique
//     uint32   type code
//     uint8    flags: bit 0 all items have the same size; no other bit may be set
//     uint8    name length N (0 to 255), then N bytes of name without NUL (no NUL inside)
//     uint32   item count, at least 1
//     fixed-size field:  uint32 item size (at least 1), then count items of that size
//     variable field:    per item uint32 size (at least 1), then that many bytes
//
// Items of the kits' own types must have their natural form: bool, int8 ... int64,
// float, double, BPoint, BRect, pointer (8 bytes) and BMessenger (port, token, team:
// 3 x int32) are fixed-size with their exact sizes; a string ends with its NUL;
// an entry_ref is int64 device, int64 directory and the leaf name with its NUL; a
// nested message is a complete flattened message of exactly the item's size,
// nested at most 32 deep. Anything else is refused with B_BAD_DATA (or
// B_BAD_VALUE for a missing buffer), and nothing is read outside the given size.

#include <Message.h>

#include <Handler.h>
#include <Messenger.h>

#include <cstdio>
#include <cstring>

#include "MessagePrivate.h"
#include "ReplyState.h"

namespace {

const char kMagic[4] = {'V', 'M', 'F', '1'};
const size_t kHeaderSize = 24;
const size_t kDropInfoSize = 16;
const uint32 kDroppedFlag = 0x1;
const uint8 kFixedSizeFlag = 0x1;
const int kMaxNesting = 32;
const size_t kMessengerSize = 12;
const size_t kRefHeaderSize = 16;

// Appends little-endian values to a byte buffer.
class Writer {
public:
	explicit Writer(std::vector<uint8>& buffer) : fBuffer(buffer) {}

	void Bytes(const void* data, size_t size)
	{
		const uint8* bytes = static_cast<const uint8*>(data);
		fBuffer.insert(fBuffer.end(), bytes, bytes + size);
	}

	void UInt8(uint8 value) { fBuffer.push_back(value); }

	void UInt32(uint32 value)
	{
		for (int shift = 0; shift < 32; shift += 8)
			fBuffer.push_back(static_cast<uint8>(value >> shift));
	}

	void UInt64(uint64 value)
	{
		UInt32(static_cast<uint32>(value));
		UInt32(static_cast<uint32>(value >> 32));
	}

	void Float(float value)
	{
		uint32 bits;
		memcpy(&bits, &value, sizeof(bits));
		UInt32(bits);
	}

private:
	std::vector<uint8>& fBuffer;
};

// Reads little-endian values from a bounded buffer; every read checks the bound.
class Reader {
public:
	Reader(const uint8* data, size_t size) : fData(data), fSize(size) {}

	size_t Remaining() const { return fSize - fPosition; }

	bool Bytes(size_t size, const uint8** bytes)
	{
		if (size > Remaining())
			return false;
		*bytes = fData + fPosition;
		fPosition += size;
		return true;
	}

	bool UInt8(uint8* value)
	{
		const uint8* bytes;
		if (!Bytes(1, &bytes))
			return false;
		*value = bytes[0];
		return true;
	}

	bool UInt32(uint32* value)
	{
		const uint8* bytes;
		if (!Bytes(4, &bytes))
			return false;
		*value = bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<uint32>(bytes[3]) << 24;
		return true;
	}

	bool UInt64(uint64* value)
	{
		uint32 low, high;
		if (!UInt32(&low) || !UInt32(&high))
			return false;
		*value = low | static_cast<uint64>(high) << 32;
		return true;
	}

	bool Float(float* value)
	{
		uint32 bits;
		if (!UInt32(&bits))
			return false;
		memcpy(value, &bits, sizeof(bits));
		return true;
	}

private:
	const uint8* fData;
	size_t fSize;
	size_t fPosition = 0;
};

// The size every item of a kit type has, or 0 for variable-size and foreign types.
size_t
NaturalSize(type_code type)
{
	switch (type) {
		case B_BOOL_TYPE:
		case B_INT8_TYPE:
		case B_UINT8_TYPE:
			return 1;
		case B_INT16_TYPE:
		case B_UINT16_TYPE:
			return 2;
		case B_INT32_TYPE:
		case B_UINT32_TYPE:
		case B_FLOAT_TYPE:
			return 4;
		case B_INT64_TYPE:
		case B_UINT64_TYPE:
		case B_DOUBLE_TYPE:
		case B_POINT_TYPE:
		case B_POINTER_TYPE:
			return 8;
		case B_MESSENGER_TYPE:
			return kMessengerSize;
		case B_RECT_TYPE:
			return 16;
		default:
			return 0;
	}
}

bool
EndsWithNul(const uint8* data, size_t size)
{
	return size > 0 && data[size - 1] == '\0';
}

std::vector<uint8>
FlattenRef(const entry_ref& ref)
{
	std::vector<uint8> buffer;
	Writer writer(buffer);
	writer.UInt64(static_cast<uint64>(ref.device));
	writer.UInt64(static_cast<uint64>(ref.directory));
	const char* name = ref.name != nullptr ? ref.name : "";
	writer.Bytes(name, strlen(name) + 1);
	return buffer;
}

std::vector<uint8>
FlattenMessage(const BMessage& message)
{
	std::vector<uint8> buffer(message.FlattenedSize());
	message.Flatten(reinterpret_cast<char*>(buffer.data()), buffer.size());
	return buffer;
}

void
PrintValue(type_code type, const uint8* data, size_t size)
{
	switch (type) {
		case B_STRING_TYPE:
			printf("string(\"%s\", %zu bytes)", reinterpret_cast<const char*>(data), size);
			break;
		case B_INT32_TYPE: {
			int32 value;
			memcpy(&value, data, sizeof(value));
			printf("int32(%d or 0x%x)", value, static_cast<uint32>(value));
			break;
		}
		case B_BOOL_TYPE:
			printf("bool(%s)", data[0] != 0 ? "true" : "false");
			break;
		default: {
			char code[5] = {static_cast<char>(type >> 24), static_cast<char>(type >> 16),
				static_cast<char>(type >> 8), static_cast<char>(type), '\0'};
			printf("'%s'(%zu bytes)", code, size);
			break;
		}
	}
}

}	// namespace

// #pragma mark - construction

BMessage::BMessage()
	: what(0)
{
}

BMessage::BMessage(uint32 command)
	: what(command)
{
}

BMessage::BMessage(const BMessage& other)
	: what(0)
{
	*this = other;
}

BMessage::~BMessage()
{
	// An unanswered message tells a waiting sender that no reply will come.
	if (fReplyState != nullptr)
		fReplyState->Abandon();
}

BMessage&
BMessage::operator=(const BMessage& other)
{
	if (this == &other)
		return *this;
	pvCopyFields(other);
	fTargetToken = other.fTargetToken;
	fDelivered = other.fDelivered;
	fIsReply = other.fIsReply;
	fReplied = other.fReplied;
	if (fReplyState != nullptr && fReplyState != other.fReplyState)
		fReplyState->Abandon();
	fReturnAddress.reset(other.fReturnAddress != nullptr
		? new BMessenger(*other.fReturnAddress) : nullptr);
	fReplyState = other.fReplyState;
	fPrevious.reset(other.fPrevious != nullptr ? new BMessage(*other.fPrevious) : nullptr);
	return *this;
}

void
BMessage::pvCopyFields(const BMessage& other)
{
	what = other.what;
	fFields = other.fFields;
	fIndex = other.fIndex;
	fDropped = other.fDropped;
	fDropPoint = other.fDropPoint;
	fDropOffset = other.fDropOffset;
	fCurrentSpecifier = other.fCurrentSpecifier;
	fSpecifier.reset();
}

// #pragma mark - fields

const BMessage::Field*
BMessage::pvField(const char* name) const
{
	if (name == nullptr)
		return nullptr;
	auto found = fIndex.find(name);
	return found == fIndex.end() ? nullptr : &fFields[found->second];
}

status_t
BMessage::pvFindField(const char* name, type_code type, const Field** field) const
{
	if (name == nullptr)
		return B_BAD_VALUE;
	*field = pvField(name);
	if (*field == nullptr)
		return B_NAME_NOT_FOUND;
	if (type != B_ANY_TYPE && (*field)->type != type)
		return B_BAD_TYPE;
	return B_OK;
}

status_t
BMessage::pvFindItem(const char* name, type_code type, int32 index, Item* item) const
{
	const Field* field;
	status_t status = pvFindField(name, type, &field);
	if (status != B_OK)
		return status;
	if (index < 0 || index >= field->Count())
		return B_BAD_INDEX;
	size_t start = field->Start(index);
	item->data = field->data.data() + start;
	item->size = field->ends[index] - start;
	return B_OK;
}

namespace {

// Whether one item has the form its type asks for (see the format above).
bool
IsValidItem(type_code type, const uint8* data, size_t size, int depth)
{
	size_t natural = NaturalSize(type);
	if (natural != 0)
		return size == natural;
	switch (type) {
		case B_STRING_TYPE:
			return EndsWithNul(data, size);
		case B_REF_TYPE:
			return size > kRefHeaderSize && EndsWithNul(data, size);
		case B_MESSAGE_TYPE: {
			if (depth >= kMaxNesting)
				return false;
			BMessage nested;
			return BPrivate::MessageAccess::Unflatten(&nested, data, size, depth + 1) == B_OK;
		}
		default:
			return size > 0;
	}
}

}	// namespace

status_t
BMessage::pvAddItem(const char* name, type_code type, const void* data, size_t size,
	bool fixedSize)
{
	if (name == nullptr || data == nullptr || strlen(name) > B_FIELD_NAME_LENGTH
		|| size == 0 || size > INT32_MAX)
		return B_BAD_VALUE;
	const uint8* bytes = static_cast<const uint8*>(data);
	if (NaturalSize(type) != 0)
		fixedSize = true;
	if (!IsValidItem(type, bytes, size, 0))
		return B_BAD_VALUE;

	auto found = fIndex.find(name);
	if (found == fIndex.end()) {
		fIndex.emplace(name, fFields.size());
		fFields.push_back(Field{name, type, fixedSize, {}, {}});
		found = fIndex.find(name);
	}
	Field& field = fFields[found->second];
	if (field.type != type)
		return B_BAD_TYPE;
	if (field.fixedSize && field.Count() > 0 && field.ends[0] != size)
		return B_BAD_VALUE;
	if (field.data.size() + size > UINT32_MAX)
		return B_NO_MEMORY;
	field.data.insert(field.data.end(), bytes, bytes + size);
	field.ends.push_back(static_cast<uint32>(field.data.size()));
	return B_OK;
}

status_t
BMessage::pvReplaceItem(const char* name, type_code type, int32 index, const void* data,
	size_t size)
{
	Item item;
	status_t status = pvFindItem(name, type, index, &item);
	if (status != B_OK)
		return status;
	Field& field = fFields[fIndex.find(name)->second];
	const uint8* bytes = static_cast<const uint8*>(data);
	if (data == nullptr || size == 0 || !IsValidItem(field.type, bytes, size, 0))
		return B_BAD_VALUE;
	if (field.fixedSize && size != item.size)
		return B_BAD_VALUE;

	size_t start = field.Start(index);
	std::vector<uint8> replaced(field.data.begin(), field.data.begin() + start);
	replaced.insert(replaced.end(), bytes, bytes + size);
	replaced.insert(replaced.end(), field.data.begin() + field.ends[index], field.data.end());
	int64 delta = static_cast<int64>(size) - static_cast<int64>(item.size);
	for (int32 i = index; i < field.Count(); i++)
		field.ends[i] = static_cast<uint32>(field.ends[i] + delta);
	field.data = std::move(replaced);
	return B_OK;
}

template<typename T>
status_t
BMessage::pvFindValue(const char* name, type_code type, int32 index, T* value) const
{
	if (value == nullptr)
		return B_BAD_VALUE;
	Item item;
	status_t status = pvFindItem(name, type, index, &item);
	if (status == B_OK)
		memcpy(value, item.data, sizeof(T));
	return status;
}

void
BMessage::pvRemoveField(size_t position)
{
	fFields.erase(fFields.begin() + position);
	fIndex.clear();
	for (size_t i = 0; i < fFields.size(); i++)
		fIndex.emplace(fFields[i].name, i);
}

status_t
BMessage::GetInfo(type_code typeRequested, int32 index, char** nameFound,
	type_code* typeFound, int32* countFound) const
{
	return GetInfo(typeRequested, index, const_cast<const char**>(nameFound), typeFound,
		countFound);
}

status_t
BMessage::GetInfo(type_code typeRequested, int32 index, const char** nameFound,
	type_code* typeFound, int32* countFound) const
{
	if (index < 0)
		return B_BAD_INDEX;
	int32 matching = 0;
	for (const Field& field : fFields) {
		if (typeRequested != B_ANY_TYPE && field.type != typeRequested)
			continue;
		if (matching++ != index)
			continue;
		if (nameFound != nullptr)
			*nameFound = field.name.c_str();
		if (typeFound != nullptr)
			*typeFound = field.type;
		if (countFound != nullptr)
			*countFound = field.Count();
		return B_OK;
	}
	return matching == 0 ? B_BAD_TYPE : B_BAD_INDEX;
}

status_t
BMessage::GetInfo(const char* name, type_code* typeFound, int32* countFound) const
{
	return GetInfo(name, typeFound, countFound, nullptr);
}

status_t
BMessage::GetInfo(const char* name, type_code* typeFound, bool* fixedSize) const
{
	return GetInfo(name, typeFound, nullptr, fixedSize);
}

status_t
BMessage::GetInfo(const char* name, type_code* typeFound, int32* countFound,
	bool* fixedSize) const
{
	const Field* field;
	status_t status = pvFindField(name, B_ANY_TYPE, &field);
	if (status != B_OK)
		return status;
	if (typeFound != nullptr)
		*typeFound = field->type;
	if (countFound != nullptr)
		*countFound = field->Count();
	if (fixedSize != nullptr)
		*fixedSize = field->fixedSize;
	return B_OK;
}

int32
BMessage::CountNames(type_code type) const
{
	int32 count = 0;
	for (const Field& field : fFields) {
		if (type == B_ANY_TYPE || field.type == type)
			count++;
	}
	return count;
}

bool
BMessage::IsEmpty() const
{
	return fFields.empty();
}

void
BMessage::MakeEmpty()
{
	fFields.clear();
	fIndex.clear();
	fCurrentSpecifier = -1;
	fSpecifier.reset();
}

bool
BMessage::HasSameData(const BMessage& other) const
{
	if (fFields.size() != other.fFields.size())
		return false;
	for (const Field& field : fFields) {
		const Field* match = other.pvField(field.name.c_str());
		if (match == nullptr || match->type != field.type || match->ends != field.ends
			|| match->data != field.data)
			return false;
	}
	return true;
}

status_t
BMessage::Rename(const char* oldName, const char* newName)
{
	if (oldName == nullptr || newName == nullptr || strlen(newName) > B_FIELD_NAME_LENGTH)
		return B_BAD_VALUE;
	auto found = fIndex.find(oldName);
	if (found == fIndex.end())
		return B_NAME_NOT_FOUND;
	if (fIndex.count(newName) != 0)
		return strcmp(oldName, newName) == 0 ? B_OK : B_NAME_IN_USE;
	size_t position = found->second;
	fIndex.erase(found);
	fFields[position].name = newName;
	fIndex.emplace(newName, position);
	return B_OK;
}

void
BMessage::PrintToStream() const
{
	char code[5] = {static_cast<char>(what >> 24), static_cast<char>(what >> 16),
		static_cast<char>(what >> 8), static_cast<char>(what), '\0'};
	printf("BMessage('%s') {\n", code);
	for (const Field& field : fFields) {
		for (int32 i = 0; i < field.Count(); i++) {
			size_t start = field.Start(i);
			printf("        %s[%d] = ", field.name.c_str(), i);
			PrintValue(field.type, field.data.data() + start, field.ends[i] - start);
			printf("\n");
		}
	}
	printf("}\n");
}

status_t
BMessage::RemoveData(const char* name, int32 index)
{
	Item item;
	status_t status = pvFindItem(name, B_ANY_TYPE, index, &item);
	if (status != B_OK)
		return status;
	size_t position = fIndex.find(name)->second;
	Field& field = fFields[position];
	if (field.Count() == 1) {
		pvRemoveField(position);
		return B_OK;
	}
	size_t start = field.Start(index);
	field.data.erase(field.data.begin() + start, field.data.begin() + field.ends[index]);
	field.ends.erase(field.ends.begin() + index);
	for (int32 i = index; i < field.Count(); i++)
		field.ends[i] -= static_cast<uint32>(item.size);
	return B_OK;
}

status_t
BMessage::RemoveName(const char* name)
{
	if (name == nullptr)
		return B_BAD_VALUE;
	auto found = fIndex.find(name);
	if (found == fIndex.end())
		return B_NAME_NOT_FOUND;
	pvRemoveField(found->second);
	return B_OK;
}

// #pragma mark - drops

bool
BMessage::WasDropped() const
{
	return fDropped;
}

BPoint
BMessage::DropPoint(BPoint* offset) const
{
	if (offset != nullptr)
		*offset = fDropOffset;
	return fDropPoint;
}

// #pragma mark - adding, finding, replacing typed data

// The forms without an index address the first item.
#define FIRST_ITEM_FORMS(Name, FindType, ReplaceType, typeCode)                           \
	status_t BMessage::Find##Name(const char* name, FindType value) const                \
	{                                                                                    \
		return Find##Name(name, 0, value);                                               \
	}                                                                                    \
	status_t BMessage::Replace##Name(const char* name, ReplaceType value)                \
	{                                                                                    \
		return Replace##Name(name, 0, value);                                            \
	}                                                                                    \
	bool BMessage::Has##Name(const char* name, int32 index) const                        \
	{                                                                                    \
		return HasData(name, typeCode, index);                                           \
	}

#define FIXED_SIZE_ACCESSORS(Name, Type, typeCode)                                       \
	status_t BMessage::Add##Name(const char* name, Type value)                           \
	{                                                                                    \
		return pvAddItem(name, typeCode, &value, sizeof(value), true);                   \
	}                                                                                    \
	status_t BMessage::Find##Name(const char* name, int32 index, Type* value) const      \
	{                                                                                    \
		return pvFindValue(name, typeCode, index, value);                                \
	}                                                                                    \
	status_t BMessage::Replace##Name(const char* name, int32 index, Type value)          \
	{                                                                                    \
		return pvReplaceItem(name, typeCode, index, &value, sizeof(value));              \
	}                                                                                    \
	FIRST_ITEM_FORMS(Name, Type*, Type, typeCode)

FIXED_SIZE_ACCESSORS(Int8, int8, B_INT8_TYPE)
FIXED_SIZE_ACCESSORS(UInt8, uint8, B_UINT8_TYPE)
FIXED_SIZE_ACCESSORS(Int16, int16, B_INT16_TYPE)
FIXED_SIZE_ACCESSORS(UInt16, uint16, B_UINT16_TYPE)
FIXED_SIZE_ACCESSORS(Int32, int32, B_INT32_TYPE)
FIXED_SIZE_ACCESSORS(UInt32, uint32, B_UINT32_TYPE)
FIXED_SIZE_ACCESSORS(Int64, int64, B_INT64_TYPE)
FIXED_SIZE_ACCESSORS(UInt64, uint64, B_UINT64_TYPE)
FIXED_SIZE_ACCESSORS(Float, float, B_FLOAT_TYPE)
FIXED_SIZE_ACCESSORS(Double, double, B_DOUBLE_TYPE)
FIXED_SIZE_ACCESSORS(Point, BPoint, B_POINT_TYPE)
FIXED_SIZE_ACCESSORS(Rect, BRect, B_RECT_TYPE)

FIRST_ITEM_FORMS(Bool, bool*, bool, B_BOOL_TYPE)
FIRST_ITEM_FORMS(Pointer, void**, const void*, B_POINTER_TYPE)
FIRST_ITEM_FORMS(String, const char**, const char*, B_STRING_TYPE)
FIRST_ITEM_FORMS(Messenger, BMessenger*, BMessenger, B_MESSENGER_TYPE)
FIRST_ITEM_FORMS(Ref, entry_ref*, const entry_ref*, B_REF_TYPE)
FIRST_ITEM_FORMS(Message, BMessage*, const BMessage*, B_MESSAGE_TYPE)


#undef FIXED_SIZE_ACCESSORS
#undef FIRST_ITEM_FORMS

status_t
BMessage::AddBool(const char* name, bool value)
{
	uint8 byte = value ? 1 : 0;
	return pvAddItem(name, B_BOOL_TYPE, &byte, 1, true);
}

status_t
BMessage::FindBool(const char* name, int32 index, bool* value) const
{
	uint8 byte;
	status_t status = pvFindValue(name, B_BOOL_TYPE, index, &byte);
	if (status == B_OK && value != nullptr)
		*value = byte != 0;
	return value == nullptr ? B_BAD_VALUE : status;
}

status_t
BMessage::ReplaceBool(const char* name, int32 index, bool value)
{
	uint8 byte = value ? 1 : 0;
	return pvReplaceItem(name, B_BOOL_TYPE, index, &byte, 1);
}

status_t
BMessage::AddPointer(const char* name, const void* pointer)
{
	uint64 value = reinterpret_cast<uintptr_t>(pointer);
	return pvAddItem(name, B_POINTER_TYPE, &value, sizeof(value), true);
}

status_t
BMessage::FindPointer(const char* name, int32 index, void** pointer) const
{
	uint64 value;
	status_t status = pvFindValue(name, B_POINTER_TYPE, index, &value);
	if (status == B_OK && pointer != nullptr)
		*pointer = reinterpret_cast<void*>(static_cast<uintptr_t>(value));
	return pointer == nullptr ? B_BAD_VALUE : status;
}

status_t
BMessage::ReplacePointer(const char* name, int32 index, const void* pointer)
{
	uint64 value = reinterpret_cast<uintptr_t>(pointer);
	return pvReplaceItem(name, B_POINTER_TYPE, index, &value, sizeof(value));
}

status_t
BMessage::AddString(const char* name, const char* string)
{
	if (string == nullptr)
		return B_BAD_VALUE;
	return pvAddItem(name, B_STRING_TYPE, string, strlen(string) + 1, false);
}

status_t
BMessage::AddString(const char* name, const BString& string)
{
	return AddString(name, string.String());
}

status_t
BMessage::FindString(const char* name, int32 index, const char** string) const
{
	if (string == nullptr)
		return B_BAD_VALUE;
	Item item;
	status_t status = pvFindItem(name, B_STRING_TYPE, index, &item);
	if (status == B_OK)
		*string = reinterpret_cast<const char*>(item.data);
	return status;
}

status_t
BMessage::FindString(const char* name, int32 index, BString* string) const
{
	if (string == nullptr)
		return B_BAD_VALUE;
	const char* found;
	status_t status = FindString(name, index, &found);
	if (status == B_OK)
		string->SetTo(found);
	return status;
}

status_t
BMessage::ReplaceString(const char* name, int32 index, const char* string)
{
	if (string == nullptr)
		return B_BAD_VALUE;
	return pvReplaceItem(name, B_STRING_TYPE, index, string, strlen(string) + 1);
}

status_t
BMessage::ReplaceString(const char* name, const BString& string)
{
	return ReplaceString(name, 0, string.String());
}

status_t
BMessage::ReplaceString(const char* name, int32 index, const BString& string)
{
	return ReplaceString(name, index, string.String());
}

status_t
BMessage::AddMessenger(const char* name, BMessenger messenger)
{
	int32 values[3] = {messenger.fPort, messenger.fHandlerToken, messenger.fTeam};
	return pvAddItem(name, B_MESSENGER_TYPE, values, sizeof(values), true);
}

status_t
BMessage::FindMessenger(const char* name, int32 index, BMessenger* messenger) const
{
	int32 values[3];
	if (messenger == nullptr)
		return B_BAD_VALUE;
	Item item;
	status_t status = pvFindItem(name, B_MESSENGER_TYPE, index, &item);
	if (status != B_OK)
		return status;
	memcpy(values, item.data, sizeof(values));
	messenger->pvSetTo(values[0], values[1], values[2]);
	return B_OK;
}

status_t
BMessage::ReplaceMessenger(const char* name, int32 index, BMessenger messenger)
{
	int32 values[3] = {messenger.fPort, messenger.fHandlerToken, messenger.fTeam};
	return pvReplaceItem(name, B_MESSENGER_TYPE, index, values, sizeof(values));
}

status_t
BMessage::AddRef(const char* name, const entry_ref* ref)
{
	if (ref == nullptr)
		return B_BAD_VALUE;
	std::vector<uint8> flat = FlattenRef(*ref);
	return pvAddItem(name, B_REF_TYPE, flat.data(), flat.size(), false);
}

status_t
BMessage::FindRef(const char* name, int32 index, entry_ref* ref) const
{
	if (ref == nullptr)
		return B_BAD_VALUE;
	Item item;
	status_t status = pvFindItem(name, B_REF_TYPE, index, &item);
	if (status != B_OK)
		return status;
	Reader reader(item.data, item.size);
	uint64 device = 0, directory = 0;
	reader.UInt64(&device);
	reader.UInt64(&directory);
	const char* leaf = reinterpret_cast<const char*>(item.data + kRefHeaderSize);
	ref->device = static_cast<dev_t>(device);
	ref->directory = static_cast<ino_t>(directory);
	return ref->set_name(leaf[0] != '\0' ? leaf : nullptr);
}

status_t
BMessage::ReplaceRef(const char* name, int32 index, const entry_ref* ref)
{
	if (ref == nullptr)
		return B_BAD_VALUE;
	std::vector<uint8> flat = FlattenRef(*ref);
	return pvReplaceItem(name, B_REF_TYPE, index, flat.data(), flat.size());
}

status_t
BMessage::AddMessage(const char* name, const BMessage* message)
{
	if (message == nullptr)
		return B_BAD_VALUE;
	std::vector<uint8> flat = FlattenMessage(*message);
	return pvAddItem(name, B_MESSAGE_TYPE, flat.data(), flat.size(), false);
}

status_t
BMessage::FindMessage(const char* name, int32 index, BMessage* message) const
{
	if (message == nullptr)
		return B_BAD_VALUE;
	Item item;
	status_t status = pvFindItem(name, B_MESSAGE_TYPE, index, &item);
	if (status != B_OK)
		return status;
	return message->Unflatten(reinterpret_cast<const char*>(item.data), item.size);
}

status_t
BMessage::ReplaceMessage(const char* name, int32 index, const BMessage* message)
{
	if (message == nullptr)
		return B_BAD_VALUE;
	std::vector<uint8> flat = FlattenMessage(*message);
	return pvReplaceItem(name, B_MESSAGE_TYPE, index, flat.data(), flat.size());
}

status_t
BMessage::AddData(const char* name, type_code type, const void* data, ssize_t numBytes,
	bool isFixedSize, int32)
{
	if (numBytes <= 0)
		return B_BAD_VALUE;
	return pvAddItem(name, type, data, static_cast<size_t>(numBytes), isFixedSize);
}

status_t
BMessage::FindData(const char* name, type_code type, const void** data,
	ssize_t* numBytes) const
{
	return FindData(name, type, 0, data, numBytes);
}

status_t
BMessage::FindData(const char* name, type_code type, int32 index, const void** data,
	ssize_t* numBytes) const
{
	if (data == nullptr)
		return B_BAD_VALUE;
	Item item;
	status_t status = pvFindItem(name, type, index, &item);
	if (status != B_OK)
		return status;
	*data = item.data;
	if (numBytes != nullptr)
		*numBytes = static_cast<ssize_t>(item.size);
	return B_OK;
}

status_t
BMessage::ReplaceData(const char* name, type_code type, const void* data, ssize_t numBytes)
{
	return ReplaceData(name, type, 0, data, numBytes);
}

status_t
BMessage::ReplaceData(const char* name, type_code type, int32 index, const void* data,
	ssize_t numBytes)
{
	if (numBytes <= 0)
		return B_BAD_VALUE;
	return pvReplaceItem(name, type, index, data, static_cast<size_t>(numBytes));
}

bool
BMessage::HasData(const char* name, type_code type, int32 index) const
{
	Item item;
	return pvFindItem(name, type, index, &item) == B_OK;
}

bool
BMessage::GetBool(const char* name, bool defaultValue) const
{
	bool value;
	return FindBool(name, &value) == B_OK ? value : defaultValue;
}

int32
BMessage::GetInt32(const char* name, int32 defaultValue) const
{
	int32 value;
	return FindInt32(name, &value) == B_OK ? value : defaultValue;
}

int64
BMessage::GetInt64(const char* name, int64 defaultValue) const
{
	int64 value;
	return FindInt64(name, &value) == B_OK ? value : defaultValue;
}

float
BMessage::GetFloat(const char* name, float defaultValue) const
{
	float value;
	return FindFloat(name, &value) == B_OK ? value : defaultValue;
}

const char*
BMessage::GetString(const char* name, const char* defaultValue) const
{
	const char* value;
	return FindString(name, &value) == B_OK ? value : defaultValue;
}


status_t
BMessage::FindString(const char* name, BString* string) const
{
	return FindString(name, 0, string);
}

// #pragma mark - flattening

ssize_t
BMessage::FlattenedSize() const
{
	size_t size = kHeaderSize + (fDropped ? kDropInfoSize : 0);
	for (const Field& field : fFields) {
		size += 4 + 1 + 1 + field.name.size() + 4;
		size += field.fixedSize ? 4 : 4 * field.ends.size();
		size += field.data.size();
	}
	return static_cast<ssize_t>(size);
}

status_t
BMessage::Flatten(char* buffer, ssize_t size) const
{
	ssize_t needed = FlattenedSize();
	if (buffer == nullptr)
		return B_BAD_VALUE;
	if (size < needed)
		return B_NO_MEMORY;
	if (needed > INT32_MAX)
		return B_BAD_VALUE;

	std::vector<uint8> flat;
	flat.reserve(needed);
	Writer writer(flat);
	writer.Bytes(kMagic, sizeof(kMagic));
	writer.UInt32(static_cast<uint32>(needed));
	writer.UInt32(what);
	writer.UInt32(fDropped ? kDroppedFlag : 0);
	writer.UInt32(static_cast<uint32>(fCurrentSpecifier));
	writer.UInt32(static_cast<uint32>(fFields.size()));
	if (fDropped) {
		writer.Float(fDropPoint.x);
		writer.Float(fDropPoint.y);
		writer.Float(fDropOffset.x);
		writer.Float(fDropOffset.y);
	}
	for (const Field& field : fFields) {
		writer.UInt32(field.type);
		writer.UInt8(field.fixedSize ? kFixedSizeFlag : 0);
		writer.UInt8(static_cast<uint8>(field.name.size()));
		writer.Bytes(field.name.data(), field.name.size());
		writer.UInt32(static_cast<uint32>(field.Count()));
		if (field.fixedSize) {
			writer.UInt32(field.ends[0]);
			writer.Bytes(field.data.data(), field.data.size());
			continue;
		}
		for (int32 i = 0; i < field.Count(); i++) {
			size_t start = field.Start(i);
			writer.UInt32(static_cast<uint32>(field.ends[i] - start));
			writer.Bytes(field.data.data() + start, field.ends[i] - start);
		}
	}
	memcpy(buffer, flat.data(), flat.size());
	return B_OK;
}

status_t
BMessage::Unflatten(const char* flatBuffer)
{
	if (flatBuffer == nullptr)
		return B_BAD_VALUE;
	// Without a size, the buffer is trusted to hold the size its header states.
	Reader header(reinterpret_cast<const uint8*>(flatBuffer), kHeaderSize);
	const uint8* magic;
	uint32 size;
	header.Bytes(sizeof(kMagic), &magic);
	header.UInt32(&size);
	if (memcmp(magic, kMagic, sizeof(kMagic)) != 0)
		return B_NOT_A_MESSAGE;
	return Unflatten(flatBuffer, size);
}

status_t
BMessage::Unflatten(const char* flatBuffer, ssize_t size)
{
	if (flatBuffer == nullptr || size < 0)
		return B_BAD_VALUE;
	return pvUnflatten(reinterpret_cast<const uint8*>(flatBuffer), size, 0);
}

namespace {

// Reads one field's items after its header; they must fill the declared count.
bool
ReadItems(Reader& reader, bool fixedSize, uint32 count, std::vector<uint8>& data,
	std::vector<uint32>& ends)
{
	uint32 itemSize = 0;
	if (fixedSize && (!reader.UInt32(&itemSize) || itemSize == 0
			|| count > reader.Remaining() / itemSize))
		return false;
	// Every variable item takes at least its size and one byte.
	if (!fixedSize && count > reader.Remaining() / 5)
		return false;
	ends.reserve(count);
	for (uint32 i = 0; i < count; i++) {
		if (!fixedSize && (!reader.UInt32(&itemSize) || itemSize == 0))
			return false;
		const uint8* bytes;
		if (!reader.Bytes(itemSize, &bytes))
			return false;
		data.insert(data.end(), bytes, bytes + itemSize);
		ends.push_back(static_cast<uint32>(data.size()));
	}
	return true;
}

}	// namespace

status_t
BMessage::pvUnflatten(const uint8* data, size_t size, int depth)
{
	Reader reader(data, size);
	const uint8* magic;
	uint32 totalSize, command, flags, specifier, fieldCount;
	if (!reader.Bytes(sizeof(kMagic), &magic) || !reader.UInt32(&totalSize))
		return B_BAD_DATA;
	if (memcmp(magic, kMagic, sizeof(kMagic)) != 0)
		return B_NOT_A_MESSAGE;
	if (totalSize != size || !reader.UInt32(&command) || !reader.UInt32(&flags)
		|| !reader.UInt32(&specifier) || !reader.UInt32(&fieldCount)
		|| (flags & ~kDroppedFlag) != 0)
		return B_BAD_DATA;

	BMessage result(command);
	if ((flags & kDroppedFlag) != 0) {
		result.fDropped = true;
		if (!reader.Float(&result.fDropPoint.x) || !reader.Float(&result.fDropPoint.y)
			|| !reader.Float(&result.fDropOffset.x) || !reader.Float(&result.fDropOffset.y))
			return B_BAD_DATA;
	}
	for (uint32 i = 0; i < fieldCount; i++) {
		uint32 type, count;
		uint8 fieldFlags, nameLength;
		const uint8* name;
		if (!reader.UInt32(&type) || !reader.UInt8(&fieldFlags) || !reader.UInt8(&nameLength)
			|| !reader.Bytes(nameLength, &name) || !reader.UInt32(&count)
			|| (fieldFlags & ~kFixedSizeFlag) != 0 || count == 0
			|| memchr(name, '\0', nameLength) != nullptr)
			return B_BAD_DATA;
		Field field{std::string(reinterpret_cast<const char*>(name), nameLength), type,
			(fieldFlags & kFixedSizeFlag) != 0, {}, {}};
		if ((NaturalSize(type) != 0 && !field.fixedSize)
			|| result.fIndex.count(field.name) != 0
			|| !ReadItems(reader, field.fixedSize, count, field.data, field.ends))
			return B_BAD_DATA;
		for (int32 item = 0; item < field.Count(); item++) {
			size_t start = field.Start(item);
			if (!IsValidItem(type, field.data.data() + start, field.ends[item] - start, depth))
				return B_BAD_DATA;
		}
		result.fIndex.emplace(field.name, result.fFields.size());
		result.fFields.push_back(std::move(field));
	}
	if (reader.Remaining() != 0)
		return B_BAD_DATA;

	const Field* specifiers = result.pvField("specifiers");
	int32 current = static_cast<int32>(specifier);
	if (current < -1 || (current >= 0 && (specifiers == nullptr
			|| specifiers->type != B_MESSAGE_TYPE || current >= specifiers->Count())))
		return B_BAD_DATA;
	result.fCurrentSpecifier = current;

	pvCopyFields(result);
	return B_OK;
}

// #pragma mark - scripting

status_t
BMessage::AddSpecifier(const char* property)
{
	if (property == nullptr)
		return B_BAD_VALUE;
	BMessage specifier(B_DIRECT_SPECIFIER);
	specifier.AddString("property", property);
	return AddSpecifier(&specifier);
}

status_t
BMessage::AddSpecifier(const char* property, int32 index)
{
	if (property == nullptr)
		return B_BAD_VALUE;
	BMessage specifier(B_INDEX_SPECIFIER);
	specifier.AddString("property", property);
	specifier.AddInt32("index", index);
	return AddSpecifier(&specifier);
}

status_t
BMessage::AddSpecifier(const char* property, int32 index, int32 range)
{
	if (property == nullptr || range < 0)
		return B_BAD_VALUE;
	BMessage specifier(B_RANGE_SPECIFIER);
	specifier.AddString("property", property);
	specifier.AddInt32("index", index);
	specifier.AddInt32("range", range);
	return AddSpecifier(&specifier);
}

status_t
BMessage::AddSpecifier(const char* property, const char* name)
{
	if (property == nullptr || name == nullptr)
		return B_BAD_VALUE;
	BMessage specifier(B_NAME_SPECIFIER);
	specifier.AddString("property", property);
	specifier.AddString("name", name);
	return AddSpecifier(&specifier);
}

status_t
BMessage::AddSpecifier(const BMessage* specifier)
{
	status_t status = AddMessage("specifiers", specifier);
	if (status == B_OK) {
		fCurrentSpecifier++;
		fSpecifier.reset();
	}
	return status;
}

status_t
BMessage::SetCurrentSpecifier(int32 index)
{
	int32 count = 0;
	GetInfo("specifiers", nullptr, &count);
	if (index < 0 || index >= count)
		return B_BAD_INDEX;
	fCurrentSpecifier = index;
	fSpecifier.reset();
	return B_OK;
}

status_t
BMessage::GetCurrentSpecifier(int32* index, BMessage* specifier, int32* what,
	const char** property) const
{
	if (fCurrentSpecifier < 0)
		return B_BAD_SCRIPT_SYNTAX;
	if (index != nullptr)
		*index = fCurrentSpecifier;
	if (specifier == nullptr && (what != nullptr || property != nullptr)) {
		// The property string must outlive the call, so it lives in a cached copy.
		if (fSpecifier == nullptr)
			fSpecifier = std::make_unique<BMessage>();
		specifier = fSpecifier.get();
	}
	if (specifier == nullptr)
		return B_OK;
	status_t status = FindMessage("specifiers", fCurrentSpecifier, specifier);
	if (status != B_OK)
		return B_BAD_SCRIPT_SYNTAX;
	if (what != nullptr)
		*what = static_cast<int32>(specifier->what);
	if (property != nullptr && specifier->FindString("property", property) != B_OK)
		return B_BAD_SCRIPT_SYNTAX;
	return B_OK;
}

bool
BMessage::HasSpecifiers() const
{
	return fCurrentSpecifier >= 0;
}

status_t
BMessage::PopSpecifier()
{
	if (fCurrentSpecifier < 0)
		return B_BAD_VALUE;
	fCurrentSpecifier--;
	fSpecifier.reset();
	return B_OK;
}

// #pragma mark - replies

BMessenger
BMessage::ReturnAddress() const
{
	return fReturnAddress != nullptr ? *fReturnAddress : BMessenger();
}

const BMessage*
BMessage::Previous() const
{
	return fPrevious.get();
}

bool
BMessage::WasDelivered() const
{
	return fDelivered;
}

bool
BMessage::IsSourceWaiting() const
{
	return fReplyState != nullptr && !fReplyState->Replied();
}

bool
BMessage::IsSourceRemote() const
{
	return false;
}

bool
BMessage::IsReply() const
{
	return fIsReply;
}

status_t
BMessage::SendReply(uint32 command, BHandler* replyTo)
{
	BMessage reply(command);
	return SendReply(&reply, replyTo);
}

status_t
BMessage::SendReply(BMessage* reply, BHandler* replyTo, bigtime_t timeout)
{
	BMessenger address(replyTo);
	return pvSendReply(reply, replyTo != nullptr ? &address : nullptr, timeout, nullptr, 0);
}

status_t
BMessage::SendReply(BMessage* reply, BMessenger replyTo, bigtime_t timeout)
{
	return pvSendReply(reply, &replyTo, timeout, nullptr, 0);
}

status_t
BMessage::SendReply(uint32 command, BMessage* replyToReply)
{
	BMessage reply(command);
	return SendReply(&reply, replyToReply);
}

status_t
BMessage::SendReply(BMessage* reply, BMessage* replyToReply, bigtime_t sendTimeout,
	bigtime_t replyTimeout)
{
	if (replyToReply == nullptr)
		return B_BAD_VALUE;
	return pvSendReply(reply, nullptr, sendTimeout, replyToReply, replyTimeout);
}

status_t
BMessage::pvSendReply(BMessage* reply, const BMessenger* replyTo, bigtime_t sendTimeout,
	BMessage* replyToReply, bigtime_t replyTimeout)
{
	if (reply == nullptr)
		return B_BAD_VALUE;
	bool hasAddress = fReturnAddress != nullptr && fReturnAddress->IsValid();
	if (fReplyState == nullptr && !hasAddress)
		return B_BAD_REPLY;
	if (fReplied || (fReplyState != nullptr && fReplyState->Replied()))
		return B_DUPLICATE_REPLY;

	auto answer = std::make_unique<BMessage>(*reply);
	// The answer starts a conversation of its own (a reply to the reply at most).
	answer->fReplyState.reset();
	answer->fReturnAddress.reset();
	answer->fIsReply = true;
	answer->fPrevious = std::make_unique<BMessage>();
	answer->fPrevious->pvCopyFields(*this);

	if (fReplyState == nullptr) {
		// The sender did not wait: the reply is a message to its return address.
		fReplied = true;
		if (replyToReply != nullptr)
			return fReturnAddress->SendMessage(answer.get(), replyToReply, sendTimeout,
				replyTimeout);
		return fReturnAddress->SendMessage(answer.get(),
			replyTo != nullptr ? *replyTo : BMessenger(), sendTimeout);
	}

	std::shared_ptr<BPrivate::ReplyState> secondState;
	if (replyToReply != nullptr) {
		secondState = std::make_shared<BPrivate::ReplyState>();
		answer->fReplyState = secondState;
	}
	if (replyTo != nullptr)
		answer->fReturnAddress = std::make_unique<BMessenger>(*replyTo);
	status_t status = fReplyState->Deliver(std::move(answer));
	fReplied = true;
	if (status != B_OK || secondState == nullptr)
		return status;
	return secondState->Wait(replyTimeout, replyToReply);
}
