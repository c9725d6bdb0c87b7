#include <parsedate.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct Token {
	enum Kind { kNumber, kWord, kSymbol } kind;
	std::string text;
	long value = 0;
};

const char* const kMonths[] = {"jan", "feb", "mar", "apr", "may", "jun", "jul",
	"aug", "sep", "oct", "nov", "dec"};
const char* const kMonthNames[] = {"january", "february", "march", "april", "may",
	"june", "july", "august", "september", "october", "november", "december"};
const char* const kDays[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};
const char* const kDayNames[] = {"sunday", "monday", "tuesday", "wednesday",
	"thursday", "friday", "saturday"};

// Index of word among full names or their abbreviations ("sept", "tues", "thurs"
// included), else -1.
int
NameIndex(const std::string& word, const char* const* abbreviations,
	const char* const* names, int count)
{
	for (int i = 0; i < count; i++) {
		if (word == names[i] || word == abbreviations[i])
			return i;
		if (word.size() > 3 && strncmp(names[i], word.c_str(), word.size()) == 0)
			return i;
	}
	return -1;
}

int
MonthOf(const std::string& word)
{
	return NameIndex(word, kMonths, kMonthNames, 12);
}

int
WeekdayOf(const std::string& word)
{
	return NameIndex(word, kDays, kDayNames, 7);
}

// Relative units: seconds for the fixed ones, or months for month and year.
bool
UnitOf(std::string word, long* seconds, long* months)
{
	if (word.size() > 1 && word.back() == 's')
		word.pop_back();
	*seconds = 0;
	*months = 0;
	if (word == "second" || word == "sec")
		*seconds = 1;
	else if (word == "minute" || word == "min")
		*seconds = 60;
	else if (word == "hour" || word == "hr")
		*seconds = 3600;
	else if (word == "day")
		*seconds = 86400;
	else if (word == "week")
		*seconds = 7 * 86400;
	else if (word == "fortnight")
		*seconds = 14 * 86400;
	else if (word == "month")
		*months = 1;
	else if (word == "year")
		*months = 12;
	else
		return false;
	return true;
}

bool
IsNoise(const std::string& word)
{
	static const char* const kNoise[] = {"at", "on", "of", "the", "and", "t", "st",
		"nd", "rd", "th"};
	for (const char* noise : kNoise) {
		if (word == noise)
			return true;
	}
	return false;
}

int
DaysInMonth(int year, int month)
{
	static const int kDaysIn[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
	bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
	return month == 2 && leap ? 29 : kDaysIn[month - 1];
}

bool
Tokenize(const char* text, std::vector<Token>* tokens)
{
	for (const char* p = text; *p != '\0';) {
		unsigned char c = *p;
		if (isspace(c)) {
			p++;
		} else if (isdigit(c)) {
			Token token{Token::kNumber, std::string()};
			while (isdigit(static_cast<unsigned char>(*p)) && token.text.size() < 10)
				token.text += *p++;
			if (isdigit(static_cast<unsigned char>(*p)))
				return false;
			token.value = atol(token.text.c_str());
			tokens->push_back(token);
		} else if (isalpha(c)) {
			Token token{Token::kWord, std::string()};
			while (isalpha(static_cast<unsigned char>(*p)))
				token.text += static_cast<char>(tolower(static_cast<unsigned char>(*p++)));
			tokens->push_back(token);
		} else if (strchr(":/-+,.", c) != nullptr) {
			tokens->push_back(Token{Token::kSymbol, std::string(1, *p++)});
		} else
			return false;
	}
	return !tokens->empty();
}

// Reads the tokens of one date text into its parts, then builds the time.
class DateParser {
public:
	DateParser(std::vector<Token> tokens)
		: fTokens(std::move(tokens)), fIndex(0)
	{
	}

	bool Parse()
	{
		while (fIndex < fTokens.size()) {
			if (!_Step())
				return false;
		}
		return true;
	}

	time_t Result(time_t now) const;

private:
	bool _Step();
	bool _Word(const std::string& word);
	bool _Number(const Token& number);
	bool _Time(long hour);
	bool _NumericDate(long first, int firstDigits, char separator);
	bool _Relative(long count);
	bool _Meridian(bool afternoon);
	bool _SetDate(long year, int yearDigits, long month, long day);

	const Token* _Peek(size_t ahead = 0) const
	{
		return fIndex + ahead < fTokens.size() ? &fTokens[fIndex + ahead] : nullptr;
	}
	bool _PeekSymbol(char symbol, size_t ahead = 0) const
	{
		const Token* token = _Peek(ahead);
		return token != nullptr && token->kind == Token::kSymbol
			&& token->text[0] == symbol;
	}
	bool _PeekNumber(size_t ahead = 0) const
	{
		const Token* token = _Peek(ahead);
		return token != nullptr && token->kind == Token::kNumber;
	}

	std::vector<Token> fTokens;
	size_t fIndex;

	long fYear = -1;
	long fMonth = -1;
	long fDay = -1;
	int fYearDigits = 4;
	int fWeekday = -1;
	int fWeekdayDirection = 0;
	bool fHasTime = false;
	long fHour = 0;
	long fMinute = 0;
	long fSecond = 0;
	bool fHasMeridian = false;
	long fRelativeSeconds = 0;
	long fRelativeMonths = 0;
};

bool
DateParser::_Step()
{
	const Token& token = fTokens[fIndex++];
	switch (token.kind) {
		case Token::kWord:
			return _Word(token.text);
		case Token::kNumber:
			return _Number(token);
		case Token::kSymbol:
			if (token.text[0] == '+' || token.text[0] == '-') {
				if (!_PeekNumber())
					return false;
				long count = fTokens[fIndex++].value;
				return _Relative(token.text[0] == '-' ? -count : count);
			}
			// Commas and stray full stops separate parts.
			return token.text[0] == ',' || token.text[0] == '.';
	}
	return false;
}

bool
DateParser::_Word(const std::string& word)
{
	if (word == "now" || IsNoise(word))
		return true;
	if (word == "today" || word == "yesterday" || word == "tomorrow") {
		fRelativeSeconds += word == "today" ? 0 : word == "yesterday" ? -86400 : 86400;
		return true;
	}
	if (word == "noon" || word == "midnight") {
		if (fHasTime)
			return false;
		fHasTime = true;
		fHour = word == "noon" ? 12 : 0;
		return true;
	}
	if (word == "am" || word == "pm")
		return _Meridian(word == "pm");
	if (word == "ago") {
		fRelativeSeconds = -fRelativeSeconds;
		fRelativeMonths = -fRelativeMonths;
		return true;
	}
	if (word == "next" || word == "last" || word == "this") {
		const Token* next = _Peek();
		if (next == nullptr || next->kind != Token::kWord)
			return false;
		int direction = word == "next" ? 1 : word == "last" ? -1 : 0;
		int weekday = WeekdayOf(next->text);
		if (weekday >= 0) {
			if (fWeekday >= 0)
				return false;
			fIndex++;
			fWeekday = weekday;
			fWeekdayDirection = direction;
			return true;
		}
		return _Relative(direction);
	}
	int month = MonthOf(word);
	if (month >= 0) {
		if (fMonth >= 0)
			return false;
		fMonth = month + 1;
		// "Jan 5", "January 5th, 2024", "Jan 2024".
		if (_PeekNumber() && !_PeekSymbol(':', 1) && fTokens[fIndex].value <= 31
			&& fTokens[fIndex].text.size() <= 2 && fDay < 0)
			fDay = fTokens[fIndex++].value;
		while (_PeekSymbol(',') || (_Peek() && _Peek()->kind == Token::kWord
				&& IsNoise(_Peek()->text)))
			fIndex++;
		if (_PeekNumber() && !_PeekSymbol(':', 1) && fYear < 0
			&& fTokens[fIndex].text.size() == 4) {
			fYear = fTokens[fIndex++].value;
		}
		return true;
	}
	int weekday = WeekdayOf(word);
	if (weekday >= 0 && fWeekday < 0) {
		fWeekday = weekday;
		return true;
	}
	return false;
}

bool
DateParser::_Number(const Token& number)
{
	if (_PeekSymbol(':'))
		return _Time(number.value);
	if (_PeekSymbol('/') || _PeekSymbol('-') || _PeekSymbol('.')) {
		if (_PeekNumber(1))
			return _NumericDate(number.value, number.text.size(), fTokens[fIndex].text[0]);
		// "5-Jan-2024"
		if (_PeekSymbol('-') && _Peek(1) && _Peek(1)->kind == Token::kWord
			&& MonthOf(_Peek(1)->text) >= 0 && fDay < 0) {
			fDay = number.value;
			fIndex++;
			if (!_Word(fTokens[fIndex++].text))
				return false;
			if (_PeekSymbol('-') && _PeekNumber(1)) {
				fIndex++;
				const Token& year = fTokens[fIndex++];
				return _SetDate(year.value, year.text.size(), fMonth, fDay);
			}
			return true;
		}
	}
	const Token* next = _Peek();
	long seconds;
	long months;
	if (next != nullptr && next->kind == Token::kWord) {
		if (UnitOf(next->text, &seconds, &months))
			return _Relative(number.value);
		if (MonthOf(next->text) >= 0 && fDay < 0 && number.value >= 1
			&& number.value <= 31) {
			fDay = number.value;
			return true;
		}
		if (next->text == "am" || next->text == "pm") {
			if (fHasTime)
				return false;
			fHasTime = true;
			fHour = number.value;
			return true;
		}
	}
	if (number.text.size() == 4 && fYear < 0) {
		fYear = number.value;
		return true;
	}
	if (fMonth >= 0 && fDay < 0 && number.value >= 1 && number.value <= 31) {
		fDay = number.value;
		return true;
	}
	return false;
}

bool
DateParser::_Time(long hour)
{
	if (fHasTime)
		return false;
	fHasTime = true;
	fHour = hour;
	fIndex++;
	if (!_PeekNumber())
		return false;
	fMinute = fTokens[fIndex++].value;
	if (_PeekSymbol(':')) {
		fIndex++;
		if (!_PeekNumber())
			return false;
		fSecond = fTokens[fIndex++].value;
		// Fractions of a second are read and dropped.
		if (_PeekSymbol('.') && _PeekNumber(1))
			fIndex += 2;
	}
	return true;
}

bool
DateParser::_NumericDate(long first, int firstDigits, char separator)
{
	fIndex++;
	const Token& second = fTokens[fIndex++];
	long third = -1;
	int thirdDigits = 4;
	if (_PeekSymbol(separator) && _PeekNumber(1)) {
		fIndex++;
		third = fTokens[fIndex].value;
		thirdDigits = fTokens[fIndex++].text.size();
	}
	if (firstDigits == 4) {
		// 2024-01-05, 2024/01/05
		return third >= 0 && _SetDate(first, 4, second.value, third);
	}
	if (third < 0)
		third = -1;
	// 05.01.2024 is day first; 01/05/2024 and 01-05-2024 are month first.
	if (separator == '.')
		return _SetDate(third, thirdDigits, second.value, first);
	return _SetDate(third, thirdDigits, first, second.value);
}

bool
DateParser::_Relative(long count)
{
	const Token* unit = _Peek();
	long seconds;
	long months;
	if (unit == nullptr || unit->kind != Token::kWord
		|| !UnitOf(unit->text, &seconds, &months))
		return false;
	fIndex++;
	fRelativeSeconds += count * seconds;
	fRelativeMonths += count * months;
	return true;
}

bool
DateParser::_Meridian(bool afternoon)
{
	if (!fHasTime || fHasMeridian || fHour < 1 || fHour > 12)
		return false;
	fHasMeridian = true;
	fHour = fHour % 12 + (afternoon ? 12 : 0);
	return true;
}

bool
DateParser::_SetDate(long year, int yearDigits, long month, long day)
{
	if (fMonth >= 0 && fMonth != month)
		return false;
	if ((fYear >= 0 && year >= 0) || (fDay >= 0 && fDay != day))
		return false;
	fYear = year >= 0 ? year : fYear;
	fYearDigits = year >= 0 ? yearDigits : fYearDigits;
	fMonth = month;
	fDay = day;
	return true;
}

time_t
DateParser::Result(time_t now) const
{
	struct tm tm;
	if (localtime_r(&now, &tm) == nullptr)
		return -1;

	bool hasDate = fYear >= 0 || fMonth >= 0 || fDay >= 0;
	if (hasDate) {
		long year = fYear >= 0 ? fYear : tm.tm_year + 1900;
		if (fYear >= 0 && fYearDigits <= 2)
			year += year < 70 ? 2000 : 1900;
		long month = fMonth >= 0 ? fMonth : 1;
		if (fDay >= 0 && fMonth < 0)
			return -1;
		long day = fDay >= 0 ? fDay : 1;
		if (year < 1900 || year > 9999 || month < 1 || month > 12 || day < 1
			|| day > DaysInMonth(year, month))
			return -1;
		tm.tm_year = year - 1900;
		tm.tm_mon = month - 1;
		tm.tm_mday = day;
	} else if (fWeekday >= 0) {
		int ahead = (fWeekday - tm.tm_wday + 7) % 7;
		if (fWeekdayDirection > 0 && ahead == 0)
			ahead = 7;
		else if (fWeekdayDirection < 0)
			ahead -= 7;
		tm.tm_mday += ahead;
	}

	if (fHasTime) {
		if (fHour < 0 || fHour > 23 || fMinute < 0 || fMinute > 59 || fSecond < 0
			|| fSecond > 60)
			return -1;
		tm.tm_hour = fHour;
		tm.tm_min = fMinute;
		tm.tm_sec = fSecond;
	} else if (hasDate || fWeekday >= 0) {
		tm.tm_hour = tm.tm_min = tm.tm_sec = 0;
	}

	tm.tm_mon += fRelativeMonths;
	tm.tm_isdst = -1;
	time_t result = mktime(&tm);
	if (result == -1)
		return -1;
	// Days and weeks count in calendar days, so they keep the clock time across DST.
	long days = fRelativeSeconds / 86400;
	long rest = fRelativeSeconds % 86400;
	if (days != 0) {
		tm.tm_mday += days;
		tm.tm_isdst = -1;
		result = mktime(&tm);
	}
	return result + rest;
}

}	// namespace

time_t
parsedate(const char* dateString, time_t now)
{
	if (dateString == nullptr)
		return -1;
	std::vector<Token> tokens;
	if (!Tokenize(dateString, &tokens))
		return -1;
	DateParser parser(std::move(tokens));
	if (!parser.Parse())
		return -1;
	return parser.Result(now == -1 ? time(nullptr) : now);
}
