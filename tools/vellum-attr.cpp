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

#include "DisplayStrings.h"

namespace {

const char kUsage[] =
	"usage: vellum-attr list [--raw] PATH\n"
	"       vellum-attr get PATH NAME\n"
	"       vellum-attr set PATH NAME TYPE VALUE\n"
	"       vellum-attr rm PATH NAME\n"
	"TYPE is a four-character code (LONG, CSTR, DBLE, ...) or 0x and eight hex\n"
	"digits; VALUE is read by type (integers in decimal, or hex after 0x, within\n"
	"the type's range), or is @FILE for raw bytes from a file of at most 64 KiB.\n"
	"Type 0 would remove the attribute: use rm for that.\n"
	"list shows each value as Vellum's list does (--raw: its bytes in hex); names\n"
	"and values are printed with control characters and bytes that are not UTF-8\n"
	"escaped (\\n, \\t, \\\\, \\xHH), so that nothing printed acts on the terminal.\n"
	"When two Linux attributes map to one name, the first has it and the other is\n"
	"listed under its full Linux name (type XATR), by which it is read and removed.\n"
	"A file with more names than Linux can list (64 KiB) is not listed; get, set\n"
	"and rm still find its attributes of the known types by name.\n";

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
		case B_FILE_EXISTS:
			return "another attribute, listed under its full Linux name, is stored as that "
				"name and type: remove it first";
		case B_READ_ONLY_DEVICE: return "read-only file system";
		case B_NO_MEMORY: return "out of memory";
		case B_NOT_A_DIRECTORY: return "not a directory";
		case B_IS_A_DIRECTORY: return "is a directory";
		case B_LINK_LIMIT: return "too many levels of symbolic links";
		case B_BUSY: return "busy";
		case B_IO_ERROR: return "input/output error";
		case B_NO_MORE_FDS: return "too many open files";
		case B_FILE_ERROR: return "bad file";
		default: return "failed";
	}
}

// Whether name lies in one of the namespaces of Linux extended attributes (or
// in none, as a typed attribute's name does).
bool
KnownNamespace(const char* name)
{
	const char* dot = strchr(name, '.');
	if (dot == nullptr)
		return true;
	std::string space(name, dot);
	return space == "user" || space == "trusted" || space == "security" || space == "system";
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

// The length of the well-formed UTF-8 character of at least two bytes at
// text, or 0.
size_t
MultibyteLength(const unsigned char* text, size_t available)
{
	size_t length = text[0] >= 0xF0 && text[0] <= 0xF4 ? 4 : text[0] >= 0xE0 ? 3
		: text[0] >= 0xC2 && text[0] <= 0xDF ? 2 : 0;
	if (length == 0 || length > available)
		return 0;
	for (size_t i = 1; i < length; i++) {
		if ((text[i] & 0xC0) != 0x80)
			return 0;
	}
	// Bidirectional overrides and isolates change how the rest reads: escaped.
	if (length == 3 && text[0] == 0xE2 && ((text[1] == 0x80 && text[2] >= 0xAA
			&& text[2] <= 0xAE) || (text[1] == 0x81 && text[2] >= 0xA6 && text[2] <= 0xA9)))
		return 0;
	return length;
}

// text as a terminal may show it: printable ASCII and well-formed UTF-8 as they
// are, every other byte escaped.
std::string
Escaped(const char* text, size_t size)
{
	std::string shown;
	auto bytes = reinterpret_cast<const unsigned char*>(text);
	for (size_t i = 0; i < size;) {
		unsigned char byte = bytes[i];
		if (byte == '\\') {
			shown += "\\\\";
			i++;
		} else if (byte == '\n' || byte == '\t') {
			shown += byte == '\n' ? "\\n" : "\\t";
			i++;
		} else if (byte >= 0x20 && byte < 0x7F) {
			shown += char(byte);
			i++;
		} else if (size_t length = MultibyteLength(bytes + i, size - i)) {
			shown.append(text + i, length);
			i += length;
		} else {
			char escape[8];
			snprintf(escape, sizeof(escape), "\\x%02x", byte);
			shown += escape;
			i++;
		}
	}
	return shown;
}

// The value as Vellum's attribute list shows it.
std::string
ShownValue(type_code type, const std::vector<char>& value)
{
	char text[kAttrStringSize];
	strcpy(text, kTooLargeText);
	MakeAttrString(text, type, value.data(), int32(value.size()));
	return Escaped(text, strlen(text));
}

// The value's bytes in hex.
std::string
HexValue(const std::vector<char>& value)
{
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
List(BNode& node, const char* path, bool raw)
{
	status_t status = node.RewindAttrs();
	if (status != B_OK)
		return Fail(path, status);
	char name[B_ATTR_NAME_LENGTH];
	std::vector<char> value;
	type_code type;
	while ((status = node.GetNextAttrName(name)) == B_OK) {
		status = ReadValue(node, name, &type, &value);
		// Removed by another program since it was listed: no longer there to show.
		if (status == B_ENTRY_NOT_FOUND)
			continue;
		if (status != B_OK)
			return Fail(std::string(path) + ": " + Escaped(name, strlen(name)), status);
		printf("%s\t%s\t%zu\t%s\n", Escaped(name, strlen(name)).c_str(),
			TypeText(type).c_str(), value.size(),
			(raw ? HexValue(value) : ShownValue(type, value)).c_str());
	}
	return status == B_ENTRY_NOT_FOUND ? 0 : Fail(path, status);
}

}	// namespace

int
main(int argc, char** argv)
{
	// "list --raw PATH" is "list PATH" with the values in hex.
	bool raw = argc > 2 && strcmp(argv[1], "list") == 0 && strcmp(argv[2], "--raw") == 0;
	if (raw) {
		argv[2] = argv[1];
		argv++;
		argc--;
	}
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
		return List(node, path, raw);
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
	if (written == B_UNSUPPORTED && type == B_XATTR_TYPE && !KnownNamespace(name)) {
		fprintf(stderr, "vellum-attr: %s: %s: Linux knows no namespace \"%.*s\" (only user, "
			"trusted, security and system)\n", path, name, int(strchr(name, '.') - name), name);
		return 1;
	}
	return written >= 0 ? 0 : Fail(std::string(path) + ": " + name, written);
}
