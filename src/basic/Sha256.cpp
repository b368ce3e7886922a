#include "basic/Sha256.h"

#include "basic/Descriptor.h"
#include "basic/Interrupted.h"
#include "basic/RunTimeError.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace korvel {

namespace {

// The first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, 64> roundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t wordAt(const char* bytes) {
    std::uint32_t word = 0;
    for (int i = 0; i < 4; ++i)
        word = (word << 8U) | static_cast<unsigned char>(bytes[i]);
    return word;
}

std::array<std::uint32_t, 64> scheduleOf(const char* block) {
    std::array<std::uint32_t, 64> words{};
    for (std::size_t t = 0; t < 16; ++t)
        words[t] = wordAt(block + 4 * t);
    for (std::size_t t = 16; t < 64; ++t) {
        const std::uint32_t w15 = words[t - 15];
        const std::uint32_t w2 = words[t - 2];
        const std::uint32_t small0 = std::rotr(w15, 7) ^ std::rotr(w15, 18) ^ (w15 >> 3U);
        const std::uint32_t small1 = std::rotr(w2, 17) ^ std::rotr(w2, 19) ^ (w2 >> 10U);
        words[t] = words[t - 16] + small0 + words[t - 7] + small1;
    }
    return words;
}

} // namespace

void Sha256::addBlock(const char* block) {
    const std::array<std::uint32_t, 64> words = scheduleOf(block);
    auto [a, b, c, d, e, f, g, h] = m_state;
    for (std::size_t t = 0; t < 64; ++t) {
        const std::uint32_t large1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
        const std::uint32_t first = h + large1 + ((e & f) ^ (~e & g)) + roundConstants[t] + words[t];
        const std::uint32_t large0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
        const std::uint32_t second = large0 + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    const std::array<std::uint32_t, 8> worked = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < worked.size(); ++i)
        m_state[i] += worked[i];
}

void Sha256::add(std::string_view bytes) {
    m_size += bytes.size();
    if (!m_rest.empty()) {
        const std::size_t taken = std::min(blockSize - m_rest.size(), bytes.size());
        m_rest.append(bytes.substr(0, taken));
        bytes.remove_prefix(taken);
        if (m_rest.size() < blockSize) return;
        addBlock(m_rest.data());
        m_rest.clear();
    }
    for (; bytes.size() >= blockSize; bytes.remove_prefix(blockSize))
        addBlock(bytes.data());
    m_rest = bytes;
}

std::string Sha256::hex() {
    const std::uint64_t bits = m_size * 8;
    std::string end(1, '\x80');
    end.append((2 * blockSize - 9 - m_rest.size()) % blockSize, '\0');
    for (int shift = 56; shift >= 0; shift -= 8)
        end += static_cast<char>(bits >> static_cast<unsigned>(shift));
    add(end);
    std::string digits;
    for (const std::uint32_t word : m_state)
        for (int shift = 28; shift >= 0; shift -= 4)
            digits += "0123456789abcdef"[(word >> static_cast<unsigned>(shift)) & 0xFU];
    return digits;
}

std::string sha256OfFile(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) throw runTimeErrorOfErrno(errno);
    std::vector<char> chunk(std::size_t{256} * 1024);
    Sha256 sum;
    for (;;) {
        const ssize_t count =
            untilNotInterrupted([&] { return ::read(file.number(), chunk.data(), chunk.size()); });
        if (count < 0) throw runTimeErrorOfErrno(errno);
        if (count == 0) return sum.hex();
        sum.add({chunk.data(), static_cast<std::size_t>(count)});
    }
}

} // namespace korvel
