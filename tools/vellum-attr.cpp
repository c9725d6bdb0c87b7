// vellum-attr: lists, reads, writes and removes the typed attributes of a node.

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cmath>
#include <string>
#include <vector>

#include <Entry.h>
#include <Node.h>
#include <TypeConstants.h>

namespace {

const char kUsage[] =
	"usage: vellum-attr list PATH\n"
	"       vellum-attr get PATH NAME\n"
	"       vellum-attr set PATH NAME TYPE VALUE\n"
	"       vellum-attr rm PATH NAME\n"
	"TYPE is a four-character code (LONG, CSTR, DBLE, ...) or 0x and eight hex\n"
	"digits; VALUE is read by type (integers in decimal, or hex after 0x, within\n"
	"the type's range), or is @FILE for raw bytes from a file of at most 64 KiB.\n"
	"Type 0 would remove the attribute: use rm for that.\n";

// The largest value Linux keeps in one attribute.
const size_t kMaxValueSize = 65536;

const char*
StatusText(status_t status)
{
	switch (status) {
		case B_ENTRY_NOT_FOUND: return "no such file or attribute";
		case B_PERMISSION_DENIED: return "permission denied";
		case B_NOT_ALLOWED: return "operation not allowed";
		case B_NAME_TOO_LONG: return "name too long";
		case B_UNSUPPORTED: return "the file system does not support extended attributes";
		case B_DEVICE_FULL: return "no room for the attribute";
		case B_BAD_VALUE: return "invalid name or value";
		case B_BAD_DATA: return "more attribute names than Linux can list (64 KiB)";
		case B_READ_ONLY_DEVICE: return "read-only file system";
		case B_NO_MEMORY: return "out of memory";
		default: return "failed";
	}
}

int
Fail(const std::string& what, status_t status)
{
	fprintf(stderr, "vellum-attr: %s: %s\n", what.c_str(), StatusText(status));
	return 1;
}

int
Usage(const char* problem)
{
	fprintf(stderr, "vellum-attr: %s\n%s", problem, kUsage);
	return 2;
}

std::string
TypeText(type_code type)
{
	char text[16];
	bool printable = true;
	for (int shift = 24; shift >= 0; shift -= 8)
		printable = printable && isprint(static_cast<unsigned char>(type >> shift));
	if (printable)
		snprintf(text, sizeof(text), "%c%c%c%c", char(type >> 24), char(type >> 16),
			char(type >> 8), char(type));
	else
		snprintf(text, sizeof(text), "0x%08x", static_cast<unsigned>(type));
	return text;
}

// Four characters, or "0x" and exactly eight hex digits.
bool
ParseType(const char* text, type_code* type)
{
	if (strlen(text) == 4) {
		*type = (type_code(uint8(text[0])) << 24) | (type_code(uint8(text[1])) << 16)
			| (type_code(uint8(text[2])) << 8) | uint8(text[3]);
		return true;
	}
	if (strncmp(text, "0x", 2) != 0 || strlen(text) != 10)
		return false;
	for (const char* digit = text + 2; *digit != '\0'; digit++) {
		if (!isxdigit(static_cast<unsigned char>(*digit)))
			return false;
	}
	*type = static_cast<type_code>(strtoul(text + 2, nullptr, 16));
	return true;
}

// The bytes of the file at path, at most kMaxValueSize of them.
bool
ReadValueFile(const char* path, std::vector<char>* bytes, std::string* problem)
{
	int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
	struct stat st;
	if (file < 0 || fstat(file, &st) != 0) {
		*problem = std::string(path) + ": " + strerror(errno);
		if (file >= 0)
			close(file);
		return false;
	}
	if (S_ISDIR(st.st_mode)) {
		close(file);
		*problem = std::string(path) + ": is a folder, not a file";
		return false;
	}
	bytes->resize(kMaxValueSize + 1);
	size_t length = 0;
	ssize_t got;
	while (length < bytes->size()
		&& (got = read(file, bytes->data() + length, bytes->size() - length)) != 0) {
		if (got < 0 && errno == EINTR)
			continue;
		if (got < 0) {
			*problem = std::string(path) + ": " + strerror(errno);
			close(file);
			return false;
		}
		length += size_t(got);
	}
	close(file);
	if (length > kMaxValueSize) {
		*problem = std::string(path) + ": more than 64 KiB, the most Linux keeps in an attribute";
		return false;
	}
	bytes->resize(length);
	return true;
}

// An integer as typed: decimal, or hex after "0x" (a leading zero is no octal).
bool
ParseInteger(const char* text, bool isUnsigned, long long* value, unsigned long long* unsignedValue)
{
	const char* digits = text;
	bool negative = *digits == '-';
	if (*digits == '-' || *digits == '+')
		digits++;
	int base = strncasecmp(digits, "0x", 2) == 0 ? 16 : 10;
	if (base == 16)
		digits += 2;
	if (!isxdigit(static_cast<unsigned char>(*digits)) || (isUnsigned && negative))
		return false;
	char* end;
	errno = 0;
	unsigned long long magnitude = strtoull(digits, &end, base);
	if (*end != '\0' || errno == ERANGE)
		return false;
	*unsignedValue = magnitude;
	if (isUnsigned)
		return true;
	if (magnitude > (negative ? 1ULL << 63 : (1ULL << 63) - 1))
		return false;
	*value = negative ? static_cast<long long>(0 - magnitude) : static_cast<long long>(magnitude);
	return true;
}

// The size in bytes of an integer type, and whether it is unsigned.
size_t
IntegerSize(type_code type, bool* isUnsigned)
{
	*isUnsigned = type == B_UINT8_TYPE || type == B_UINT16_TYPE || type == B_UINT32_TYPE
		|| type == B_UINT64_TYPE || type == B_SIZE_T_TYPE;
	switch (type) {
		case B_INT8_TYPE: case B_UINT8_TYPE:
			return 1;
		case B_INT16_TYPE: case B_UINT16_TYPE:
			return 2;
		case B_INT32_TYPE: case B_UINT32_TYPE: case B_TIME_TYPE:
			return 4;
		default:
			return 8;
	}
}

// The integer's bytes in host order, or false when text is no integer of the
// type's range.
bool
IntegerBytes(type_code type, const char* text, std::vector<char>* bytes)
{
	bool isUnsigned;
	size_t size = IntegerSize(type, &isUnsigned);
	long long value = 0;
	unsigned long long unsignedValue = 0;
	if (!ParseInteger(text, isUnsigned, &value, &unsignedValue))
		return false;
	int bits = int(size) * 8;
	if (isUnsigned) {
		if (bits < 64 && unsignedValue >> bits != 0)
			return false;
		value = static_cast<long long>(unsignedValue);
	} else if (bits < 64 && (value < -(1LL << (bits - 1)) || value >= (1LL << (bits - 1))))
		return false;
	const char* first = reinterpret_cast<const char*>(&value);
	bytes->assign(first, first + size);
	return true;
}

// The value as text when it is printable (a final NUL allowed), else as hex.
std::string
ValueText(const std::vector<char>& value)
{
	size_t length = value.size();
	if (length > 0 && value[length - 1] == '\0')
		length--;
	bool printable = length > 0;
	for (size_t i = 0; i < length && printable; i++)
		printable = isprint(static_cast<unsigned char>(value[i])) || value[i] == '\t';
	if (printable)
		return std::string(value.data(), length);
	std::string hex;
	char digits[4];
	for (char byte : value) {
		snprintf(digits, sizeof(digits), "%02x", static_cast<unsigned char>(byte));
		hex += digits;
	}
	return hex;
}

template<typename T>
std::vector<char>
Bytes(T value)
{
	const char* bytes = reinterpret_cast<const char*>(&value);
	return std::vector<char>(bytes, bytes + sizeof(T));
}

// The bytes that VALUE stands for in an attribute of type type.
bool
ParseValue(type_code type, const char* text, std::vector<char>* bytes,
	std::string* problem)
{
	if (text[0] == '@')
		return ReadValueFile(text + 1, bytes, problem);
	char* end = nullptr;
	errno = 0;
	switch (type) {
		case B_INT8_TYPE: case B_UINT8_TYPE: case B_INT16_TYPE: case B_UINT16_TYPE:
		case B_INT32_TYPE: case B_UINT32_TYPE: case B_INT64_TYPE: case B_UINT64_TYPE:
		case B_SIZE_T_TYPE: case B_SSIZE_T_TYPE: case B_OFF_T_TYPE: case B_TIME_TYPE:
			if (IntegerBytes(type, text, bytes))
				return true;
			*problem = std::string("\"") + text + "\" is not a " + TypeText(type)
				+ " value (an integer in its range)";
			return false;
		case B_FLOAT_TYPE: {
			float value = strtof(text, &end);
			// Too small to tell from zero is the nearest float; too large is refused.
			if (errno == ERANGE && std::isfinite(value) && std::fabs(value) <= 1.0f)
				errno = 0;
			*bytes = Bytes(value);
			break;
		}
		case B_DOUBLE_TYPE: {
			double value = strtod(text, &end);
			if (errno == ERANGE && std::isfinite(value) && std::fabs(value) <= 1.0)
				errno = 0;
			*bytes = Bytes(value);
			break;
		}
		case B_BOOL_TYPE:
			if (strcmp(text, "true") == 0 || strcmp(text, "false") == 0) {
				*bytes = Bytes(static_cast<int8>(text[0] == 't'));
				return true;
			}
			*bytes = Bytes(static_cast<int8>(strtol(text, &end, 0) != 0));
			break;
		case B_STRING_TYPE: case B_ASCII_TYPE: case B_MIME_STRING_TYPE:
		case B_MIME_TYPE: case B_XATTR_TYPE:
			bytes->assign(text, text + strlen(text));
			return true;
		default:
			*problem = "type " + TypeText(type) + " takes its value from a file (@FILE)";
			return false;
	}
	if (end == text || *end != '\0' || errno == ERANGE) {
		*problem = std::string("\"") + text + "\" is not a " + TypeText(type) + " value";
		return false;
	}
	return true;
}

status_t
ReadValue(BNode& node, const char* name, type_code* type, std::vector<char>* value)
{
	attr_info info;
	status_t status = node.GetAttrInfo(name, &info);
	if (status != B_OK)
		return status;
	value->resize(info.size);
	ssize_t read = node.ReadAttr(name, info.type, 0, value->data(), value->size());
	if (read < 0)
		return read;
	value->resize(read);
	*type = info.type;
	return B_OK;
}

int
List(BNode& node, const char* path)
{
	status_t status = node.RewindAttrs();
	if (status != B_OK)
		return Fail(path, status);
	char name[B_ATTR_NAME_LENGTH];
	std::vector<char> value;
	type_code type;
	while ((status = node.GetNextAttrName(name)) == B_OK) {
		if ((status = ReadValue(node, name, &type, &value)) != B_OK)
			return Fail(std::string(path) + ": " + name, status);
		printf("%s\t%s\t%zu\t%s\n", name, TypeText(type).c_str(), value.size(),
			ValueText(value).c_str());
	}
	return status == B_ENTRY_NOT_FOUND ? 0 : Fail(path, status);
}

}	// namespace

int
main(int argc, char** argv)
{
	if (argc < 3)
		return Usage("missing command or path");
	std::string command = argv[1];
	const char* path = argv[2];
	size_t expected = command == "list" ? 3 : command == "get" || command == "rm" ? 4
		: command == "set" ? 6 : 0;
	if (expected == 0)
		return Usage(("unknown command \"" + command + "\"").c_str());
	if (static_cast<size_t>(argc) != expected)
		return Usage(("wrong number of arguments for " + command).c_str());

	BEntry entry(path);
	if (entry.InitCheck() != B_OK || !entry.Exists())
		return Fail(path, entry.InitCheck() != B_OK ? entry.InitCheck() : B_ENTRY_NOT_FOUND);
	BNode node(&entry);
	if (node.InitCheck() != B_OK)
		return Fail(path, node.InitCheck());

	const char* name = argv[3];
	if (command == "list")
		return List(node, path);
	if (command == "rm") {
		status_t status = node.RemoveAttr(name);
		return status == B_OK ? 0 : Fail(std::string(path) + ": " + name, status);
	}
	if (command == "get") {
		std::vector<char> value;
		type_code type;
		status_t status = ReadValue(node, name, &type, &value);
		if (status != B_OK)
			return Fail(std::string(path) + ": " + name, status);
		fwrite(value.data(), 1, value.size(), stdout);
		return 0;
	}

	type_code type;
	if (!ParseType(argv[4], &type))
		return Usage((std::string("unknown type \"") + argv[4] + "\"").c_str());
	if (type == 0)
		return Usage("type 0 would remove the attribute: use rm");
	std::vector<char> value;
	std::string problem;
	if (!ParseValue(type, argv[5], &value, &problem))
		return Usage(problem.c_str());
	ssize_t written = node.WriteAttr(name, type, 0, value.data(), value.size());
	return written >= 0 ? 0 : Fail(std::string(path) + ": " + name, written);
}
