#pragma once

// The date pattern of an output name's [Date:pattern] token. Letters as Qt
// and ICU write them, the ones that make sense in a file name:
//
//   yyyy  year, four digits      yy  year, last two digits
//   MM    month, 01 to 12        M   month, 1 to 12
//   dd    day, 01 to 31          d   day, 1 to 31
//   HH    hour, 00 to 23         H   hour, 0 to 23
//   mm    minute, 00 to 59       m   minute, 0 to 59
//   ss    second, 00 to 59       s   second, 0 to 59
//
// Every other letter is refused (a pattern that means something else in Qt
// or ICU would silently give another name); every other character is
// copied as it is. "[Date]" alone is "[Date:yyyy-MM-dd]".

#include <optional>
#include <string>
#include <vector>

#include "imaging/PhotoFacts.h"

namespace vellumo {

inline constexpr const char* kDefaultDatePattern = "yyyy-MM-dd";

class DateFormat {
  public:
    // The pattern read; nothing, with the reason in `problem`, for an empty
    // pattern or one with a letter outside the list.
    static std::optional<DateFormat> Parse(const std::string& pattern, std::string& problem);

    std::string Format(const CalendarTime& time) const;

  private:
    enum class Field { Literal, Year4, Year2, Month, Day, Hour, Minute, Second };
    struct Piece {
        Field field = Field::Literal;
        bool padded = false;  // two digits
        std::string literal;
    };
    std::vector<Piece> pieces_;
};

}  // namespace vellumo
