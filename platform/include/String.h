#ifndef _B_STRING_H
#define _B_STRING_H

#include <string>

#include <SupportDefs.h>

// A byte string with the BeOS string class's semantics: String() is never NULL,
// offsets and lengths are in bytes, out-of-range arguments are clamped.
class BString {
public:
	BString();
	BString(const char* string);
	BString(const char* string, int32 maxLength);
	BString(const BString& other);
	BString(BString&& other) noexcept;
	~BString();

	const char* String() const { return fData.c_str(); }
	int32 Length() const { return static_cast<int32>(fData.size()); }
	int32 CountChars() const;

	BString& operator=(const BString& other);
	BString& operator=(BString&& other) noexcept;
	BString& operator=(const char* string);
	BString& operator=(char c);

	BString& SetTo(const char* string);
	BString& SetTo(const char* string, int32 maxLength);
	BString& SetTo(const BString& other);
	BString& SetTo(const BString& other, int32 maxLength);
	BString& SetTo(char c, int32 count);
	BString& SetToFormat(const char* format, ...) __attribute__((format(printf, 2, 3)));
	BString& Adopt(BString& from);

	BString& CopyInto(BString& into, int32 fromOffset, int32 length) const;
	void CopyInto(char* into, int32 fromOffset, int32 length) const;

	BString& operator+=(const BString& other);
	BString& operator+=(const char* string);
	BString& operator+=(char c);
	BString& Append(const BString& other);
	BString& Append(const char* string);
	BString& Append(const BString& other, int32 length);
	BString& Append(const char* string, int32 length);
	BString& Append(char c, int32 count);
	BString& Prepend(const char* string);
	BString& Prepend(const BString& other);
	BString& Prepend(const char* string, int32 length);
	BString& Prepend(char c, int32 count);
	BString& Insert(const char* string, int32 position);
	BString& Insert(const char* string, int32 length, int32 position);
	BString& Insert(const BString& other, int32 position);
	BString& Insert(char c, int32 count, int32 position);

	BString& Truncate(int32 newLength, bool lazy = true);
	BString& Remove(int32 from, int32 length);
	BString& RemoveFirst(const char* string);
	BString& RemoveLast(const char* string);
	BString& RemoveAll(const char* string);
	BString& RemoveSet(const char* setOfCharsToRemove);
	BString& MoveInto(BString& into, int32 from, int32 length);

	bool operator<(const BString& other) const { return Compare(other) < 0; }
	bool operator<=(const BString& other) const { return Compare(other) <= 0; }
	bool operator==(const BString& other) const { return fData == other.fData; }
	bool operator>=(const BString& other) const { return Compare(other) >= 0; }
	bool operator>(const BString& other) const { return Compare(other) > 0; }
	bool operator!=(const BString& other) const { return !(*this == other); }
	bool operator<(const char* string) const { return Compare(string) < 0; }
	bool operator<=(const char* string) const { return Compare(string) <= 0; }
	bool operator==(const char* string) const { return Compare(string) == 0; }
	bool operator>=(const char* string) const { return Compare(string) >= 0; }
	bool operator>(const char* string) const { return Compare(string) > 0; }
	bool operator!=(const char* string) const { return Compare(string) != 0; }

	int Compare(const BString& other) const;
	int Compare(const char* string) const;
	int Compare(const BString& other, int32 length) const;
	int Compare(const char* string, int32 length) const;
	int ICompare(const BString& other) const;
	int ICompare(const char* string) const;
	int ICompare(const BString& other, int32 length) const;
	int ICompare(const char* string, int32 length) const;

	int32 FindFirst(const BString& string, int32 fromOffset = 0) const;
	int32 FindFirst(const char* string, int32 fromOffset = 0) const;
	int32 FindFirst(char c, int32 fromOffset = 0) const;
	int32 FindLast(const BString& string) const;
	int32 FindLast(const char* string) const;
	int32 FindLast(const char* string, int32 beforeOffset) const;
	int32 FindLast(char c) const;
	int32 FindLast(char c, int32 beforeOffset) const;
	int32 IFindFirst(const char* string, int32 fromOffset = 0) const;
	int32 IFindLast(const char* string) const;

	BString& ReplaceFirst(char replaceThis, char withThis);
	BString& ReplaceLast(char replaceThis, char withThis);
	BString& ReplaceAll(char replaceThis, char withThis, int32 fromOffset = 0);
	BString& ReplaceFirst(const char* replaceThis, const char* withThis);
	BString& ReplaceLast(const char* replaceThis, const char* withThis);
	BString& ReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset = 0);
	BString& IReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset = 0);
	BString& ReplaceSet(const char* setOfChars, char with);

	BString& ToLower();
	BString& ToUpper();
	BString& Capitalize();
	BString& CapitalizeEachWord();
	BString& CharacterEscape(const char* setOfCharsToEscape, char escapeWith);
	BString& CharacterDeescape(char escapeChar);
	BString& Trim();

	char operator[](int32 index) const;
	char ByteAt(int32 index) const;

	// Direct access to the buffer: LockBuffer makes room for maxLength bytes,
	// UnlockBuffer takes the length given or, with -1, the length up to the first NUL.
	char* LockBuffer(int32 maxLength);
	BString& UnlockBuffer(int32 length = -1);

	BString& operator<<(const char* string);
	BString& operator<<(const BString& other);
	BString& operator<<(char c);
	BString& operator<<(int value);
	BString& operator<<(unsigned int value);
	BString& operator<<(long value);
	BString& operator<<(unsigned long value);
	BString& operator<<(long long value);
	BString& operator<<(unsigned long long value);
	BString& operator<<(float value);
	BString& operator<<(double value);

private:
	int32 pvClampOffset(int32 offset) const;

	std::string fData;
};

BString operator+(const BString& a, const BString& b);
BString operator+(const BString& a, const char* b);
bool operator<(const char* a, const BString& b);
bool operator<=(const char* a, const BString& b);
bool operator==(const char* a, const BString& b);
bool operator>(const char* a, const BString& b);
bool operator>=(const char* a, const BString& b);
bool operator!=(const char* a, const BString& b);

int Compare(const BString& a, const BString& b);
int ICompare(const BString& a, const BString& b);

#endif
