// vellum-attr: lists, reads, writes and removes the typed attributes of a node.

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
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
	"digits; VALUE is read by type, or is @FILE for raw bytes from a file.\n";

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

bool
ParseType(const char* text, type_code* type)
{
	if (strlen(text) == 4) {
		*type = (type_code(uint8(text[0])) << 24) | (type_code(uint8(text[1])) << 16)
			| (type_code(uint8(text[2])) << 8) | uint8(text[3]);
		return true;
	}
	char* end;
	if (strncmp(text, "0x", 2) != 0 || strlen(text) != 10)
		return false;
	*type = static_cast<type_code>(strtoul(text + 2, &end, 16));
	return *end == '\0';
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
	if (text[0] == '@') {
		std::ifstream file(text + 1, std::ios::binary);
		if (!file) {
			*problem = std::string(text + 1) + ": cannot read the file";
			return false;
		}
		bytes->assign(std::istreambuf_iterator<char>(file), {});
		return true;
	}
	char* end = nullptr;
	errno = 0;
	switch (type) {
		case B_INT8_TYPE: case B_UINT8_TYPE: case B_INT16_TYPE: case B_UINT16_TYPE:
		case B_INT32_TYPE: case B_UINT32_TYPE: case B_INT64_TYPE: case B_UINT64_TYPE:
		case B_SIZE_T_TYPE: case B_SSIZE_T_TYPE: case B_OFF_T_TYPE: case B_TIME_TYPE: {
			long long value = type == B_UINT64_TYPE
				? static_cast<long long>(strtoull(text, &end, 0)) : strtoll(text, &end, 0);
			if (type == B_INT8_TYPE || type == B_UINT8_TYPE)
				*bytes = Bytes(static_cast<int8>(value));
			else if (type == B_INT16_TYPE || type == B_UINT16_TYPE)
				*bytes = Bytes(static_cast<int16>(value));
			else if (type == B_INT32_TYPE || type == B_UINT32_TYPE)
				*bytes = Bytes(static_cast<int32>(value));
			else
				*bytes = Bytes(static_cast<int64>(value));
			break;
		}
		case B_FLOAT_TYPE:
			*bytes = Bytes(strtof(text, &end));
			break;
		case B_DOUBLE_TYPE:
			*bytes = Bytes(strtod(text, &end));
			break;
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
	std::vector<char> value;
	std::string problem;
	if (!ParseValue(type, argv[5], &value, &problem))
		return Usage(problem.c_str());
	ssize_t written = node.WriteAttr(name, type, 0, value.data(), value.size());
	return written >= 0 ? 0 : Fail(std::string(path) + ": " + name, written);
}
