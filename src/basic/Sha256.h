// SHA-256 (FIPS 180-4): the sums that tell whether a file is still the one that a run had.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvel {

class Sha256 {
  public:
    void add(std::string_view bytes);
    // 64 small hexadecimal digits. Nothing may be added afterwards.
    std::string hex();

  private:
    static constexpr std::size_t blockSize = 64;

    void addBlock(const char* block);

    std::array<std::uint32_t, 8> m_state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                            0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::string m_rest; // less than a block
    std::uint64_t m_size = 0;
};

// Of a file by its host path. Fails with RunTimeError.
std::string sha256OfFile(const std::string& path);

} // namespace korvel
