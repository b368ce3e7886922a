// Numbers as people like to read them in a table: rounded, without exponents where that can be.
#pragma once

#include <optional>
#include <string>

namespace korvel {

std::string shownNumber(double value);                       // about four figures: "0.0123", "12.35", "1235"
std::string shownNumber(const std::optional<double>& value); // "-" for none
// The same on the screen, where very large and small numbers are told as axes tell them: "4.073E8".
std::string shownFigures(double value);
std::string shownKm(double distance); // as read: "3.36 km"
std::string shownDecimals(double value, int decimals);
std::string shownPercent(const std::optional<double>& value); // one decimal: "12.3"
std::string counted(int count, const std::string& one, const std::string& many);

} // namespace korvel
