// Numbers and texts of any kind, compared with what the C library makes of them.

#include <cerrno>
#include <cinttypes>
#include <cmath>
#include <cstring>

#include "fuzz.h"
#include "text/number_text.h"

namespace rotavel::tests {
namespace {

std::u16string Printed(const char* format, auto... values) {
    char text[1024];
    return {text, text + std::snprintf(text, sizeof text, format, values...)};
}

void CheckWritten(std::uint64_t bits, std::int32_t decimals) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    const auto integer = static_cast<std::int64_t>(bits);
    Check(IntegerToText(integer) == Printed("%" PRId64, integer));
    Check(TextToInteger(IntegerToText(integer)) == integer);
    if (std::isfinite(value) && value != 0.0) {
        Check(NumberToText(value, decimals) ==
              Printed("%.*f", std::clamp(decimals, 0, 512), value));
        const std::u16string shortest = NumberToTextShortest(value);
        Check(Printed("%.10f", value).starts_with(shortest) && !shortest.ends_with(u'.'));
        Check(Printed("%.10f", TextToNumber(shortest)) == Printed("%.10f", value));
    }
}

void CheckRead(const std::string& bytes) {
    std::u16string latin1;
    for (const char each : bytes) {
        latin1 += static_cast<unsigned char>(each);
    }
    const double number = std::strtod(bytes.substr(0, 1023).c_str(), nullptr);
    const double read = TextToNumber(latin1);
    Check(std::isnan(number) ? std::isnan(read) : std::memcmp(&read, &number, sizeof read) == 0);

    const char* const digits = bytes.c_str() + std::strspn(bytes.c_str(), " \t");
    errno = 0;
    const std::int64_t integer = std::strtoll(digits, nullptr, 10);
    if (std::strspn(digits, "\n\v\f\r$%+-") == 0 && errno == 0) {
        Check(TextToInteger(latin1) == integer);
    }
    const std::string valid = ToUtf8(ToUtf16(bytes));
    Check(ToUtf8(ToUtf16(valid)) == valid);
}

}  // namespace
}  // namespace rotavel::tests

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const auto decimals = input.ConsumeIntegral<std::int32_t>();
    rotavel::tests::CheckWritten(input.ConsumeIntegral<std::uint64_t>(), decimals);
    rotavel::tests::CheckRead(input.ConsumeRemainingBytesAsString());
    return 0;
}
