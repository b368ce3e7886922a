#include "publish/PagePolicy.h"

#include "basic/Sha256.h"

#include <charconv>
#include <cstdint>

namespace korvel {

namespace {

std::string bytesOfHex(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        unsigned value = 0;
        std::from_chars(&hex[i], &hex[i] + 2, value, 16);
        bytes += static_cast<char>(value);
    }
    return bytes;
}

std::string base64(const std::string& bytes) {
    static constexpr std::string_view letters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t three = 0;
        for (std::size_t k = 0; k < 3; ++k)
            three = (three << 8U) | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? letters[(three >> (18U - 6U * k)) & 63U] : '=';
    }
    return text;
}

} // namespace

std::string policySource(std::string_view text) {
    Sha256 sum;
    sum.add(text);
    return "sha256-" + base64(bytesOfHex(sum.hex()));
}

std::string pagePolicy(std::string_view script, std::string_view style) {
    return "default-src 'none'; script-src '" + policySource(script) + "'; style-src '" +
           policySource(style) + "'; base-uri 'none'; form-action 'none'";
}

} // namespace korvel
