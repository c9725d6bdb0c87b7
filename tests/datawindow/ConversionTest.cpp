// Every type change of the conversion table, made through a data window on a
// real file and read back with getfattr.

#include "attrlist/EditorTestSupport.h"

#include "BrindleFile.h"
#include "DataWindow.h"
#include "Formatting.h"

using BPrivate::WindowTester;

namespace {

struct Conversion {
	uint32 from;
	std::string bytes;
	uint32 to;
	// The bytes written, in hex.
	const char* written;
};

std::string
Bytes(std::initializer_list<uint8> list)
{
	return std::string(list.begin(), list.end());
}

const std::string kBool = Bytes({0x01});
const std::string kByte = Bytes({0xFE});
const std::string kUbyt = Bytes({0xC8});
const std::string kShort = Bytes({0xFE, 0xFF});
const std::string kUshort = Bytes({0xFF, 0xFF});
const std::string kLong = Bytes({0x21, 0x43, 0x65, 0x87});
const std::string kLlng = Bytes({1, 2, 3, 4, 5, 6, 7, 8});
const std::string kFloat = Bytes({0x00, 0x00, 0x80, 0x3F});
const std::string kDouble = Bytes({0, 0, 0, 0, 0, 0, 0xF0, 0x3F});
const std::string kRect = Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
const std::string kShortText("ab", 3);
const std::string kLongText("abcdefgh", 9);

const Conversion kConversions[] = {
	// Booleans are zero-extended; "UBYT" gets a fresh byte.
	{'BOOL', kBool, 'BYTE', "01"}, {'BOOL', kBool, 'UBYT', "00"},
	{'BOOL', kBool, 'USHT', "0100"}, {'BOOL', kBool, 'LONG', "01000000"},
	{'BOOL', kBool, 'ULLG', "0100000000000000"}, {'BOOL', kBool, 'DBLE', "0100000000000000"},
	// Other integers are sign-extended by their size, unsigned ones too.
	{'BYTE', kByte, 'BOOL', "fe"}, {'BYTE', kByte, 'UBYT', "00"},
	{'BYTE', kByte, 'SHRT', "feff"}, {'BYTE', kByte, 'ULNG', "feffffff"},
	{'BYTE', kByte, 'LLNG', "feffffffffffffff"}, {'BYTE', kByte, 'FLOT', "fe000000"},
	{'UBYT', kUbyt, 'LONG', "c8ffffff"},
	{'SHRT', kShort, 'BYTE', "fe"}, {'SHRT', kShort, 'UBYT', "00"},
	{'SHRT', kShort, 'USHT', "feff"}, {'SHRT', kShort, 'LONG', "feffffff"},
	{'SHRT', kShort, 'ULLG', "feffffffffffffff"}, {'SHRT', kShort, 'TIME', "feff0000"},
	{'USHT', kUshort, 'ULNG', "ffffffff"},
	{'LONG', kLong, 'BOOL', "21"}, {'LONG', kLong, 'UBYT', "21"},
	{'LONG', kLong, 'SHRT', "2143"}, {'LONG', kLong, 'ULNG', "21436587"},
	{'LONG', kLong, 'LLNG', "21436587ffffffff"}, {'LONG', kLong, 'FLOT', "21436587"},
	{'LLNG', kLlng, 'BYTE', "01"}, {'LLNG', kLlng, 'UBYT', "01"},
	{'LLNG', kLlng, 'USHT', "0102"}, {'LLNG', kLlng, 'LONG', "01020304"},
	{'LLNG', kLlng, 'ULLG', "0102030405060708"}, {'LLNG', kLlng, 'CSTR', "0102030405060708"},
	// Other types give their bits, or a fresh value when they are too short.
	{'FLOT', kFloat, 'BOOL', "00"}, {'FLOT', kFloat, 'UBYT', "00"},
	{'FLOT', kFloat, 'SHRT', "0000"}, {'TIME', kFloat, 'LONG', "0000803f"},
	{'FLOT', kFloat, 'LLNG', "0000000000000000"}, {'TIME', kFloat, 'RECT',
		"0000803f000000000000000000000000"},
	{'DBLE', kDouble, 'BYTE', "00"}, {'DBLE', kDouble, 'SHRT', "0000"},
	{'DBLE', kDouble, 'ULNG', "00000000"}, {'DBLE', kDouble, 'LLNG', "000000000000f03f"},
	{'RECT', kRect, 'UBYT', "01"}, {'RECT', kRect, 'ULLG', "0102030405060708"},
	{'RECT', kRect, 'OFFT', "0102030405060708"},
	{'CSTR', kShortText, 'BOOL', "61"}, {'CSTR', kShortText, 'UBYT', "00"},
	{'CSTR', kShortText, 'SHRT', "6162"}, {'CSTR', kShortText, 'LONG', "00000000"},
	{'CSTR', kShortText, 'LLNG', "0000000000000000"}, {'MIMS', kShortText, 'RAWT', "616200"},
	{'CSTR', kLongText, 'UBYT', "61"}, {'CSTR', kLongText, 'ULNG', "61626364"},
	{'TEXT', kLongText, 'ULLG', "6162636465666768"}
};

}	// namespace

TEST(ConversionTest, EveryTypeChangeWritesTheConvertedBytes)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("file");
	WindowTester::RunHeadless([&] {
		Inspector w(path);
		BrindleFile node(path.c_str());
		for (const Conversion& conversion : kConversions) {
			std::string label = std::string(ASCII(conversion.from)) + " to "
				+ std::string(ASCII(conversion.to));
			WriteAttr(path, "value", conversion.from, conversion.bytes.data(),
				conversion.bytes.size());
			DataWindow* window = DataWindow::Create(w.window, &node);
			window->Refresh("value", conversion.from, conversion.bytes.data(),
				conversion.bytes.size());
			ASSERT_TRUE(window->Lock());
			window->ChangeComposite(nullptr, conversion.to, nullptr, 0);
			window->Quit();

			auto attributes = Xattrs(path);
			EXPECT_EQ(1u, attributes.size()) << label;
			std::string name = "user.haiku.value#" + std::string(ASCII(conversion.to));
			EXPECT_EQ(conversion.written, attributes[name]) << label;
		}
	});
}
