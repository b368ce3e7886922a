// The rules of list input (see basic/ListInput.h) told once more, one letter at a time over the whole text:
// what the fast reader is held against.
#pragma once

#include "basic/RunTimeError.h"

#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <utility>

namespace korvel {

class LetterByLetterInput {
  public:
    // A Ctrl-Z ends the file where only blanks, line ends and others of its kind stand behind it.
    explicit LetterByLetterInput(std::string text) : m_text(std::move(text)) {
        std::size_t end = m_text.size();
        for (std::size_t k = end;
             k > 0 && (isBlank(m_text[k - 1]) || isBreak(m_text[k - 1]) || m_text[k - 1] == 26);) {
            if (m_text[--k] == 26) end = k;
        }
        m_text.resize(end);
    }

    double number() {
        start();
        std::string word;
        while (!gone() && !isBlank(now()) && now() != ',' && !isBreak(now()))
            word += take();
        const double value = word.empty() ? 0 : valueOf(word);
        finish();
        return value;
    }

    int integer() {
        const double value = number();
        const double below = std::floor(value);
        const double rest = value - below;
        double whole = rest > 0.5 ? below + 1 : below;
        if (rest == 0.5 && std::fmod(below, 2) != 0) whole = below + 1;
        if (whole < -2147483648.0 || whole > 2147483647.0) throw RunTimeError(6);
        return static_cast<int>(whole);
    }

    std::string text() {
        start();
        std::string word;
        if (now() == '"') {
            word = quoted();
        } else {
            while (!gone() && now() != ',' && !isBreak(now()))
                word += take();
            while (!word.empty() && isBlank(word.back()))
                word.pop_back();
        }
        finish();
        return word;
    }

    void skip() {
        start();
        if (now() == '"') {
            quoted();
        } else {
            while (!gone() && !isBlank(now()) && now() != ',' && !isBreak(now()))
                take();
        }
        finish();
    }

    std::string line() {
        if (gone()) throw RunTimeError(62);
        std::string word;
        while (!gone() && !isBreak(now()))
            word += take();
        takeBreak();
        return word;
    }

    bool atEnd() const {
        for (std::size_t k = m_at; k < m_text.size(); ++k) {
            if (!isBlank(m_text[k]) && !isBreak(m_text[k])) return false;
        }
        return true;
    }

  private:
    static bool isBlank(char c) { return c == ' ' || c == '\t'; }
    static bool isBreak(char c) { return c == '\n' || c == '\r'; }
    bool gone() const { return m_at >= m_text.size(); }
    char now() const { return gone() ? '\0' : m_text[m_at]; }
    char take() { return m_text[m_at++]; }

    void start() {
        while (isBlank(now()))
            take();
        if (gone()) throw RunTimeError(62);
    }

    std::string quoted() {
        std::string word;
        take();
        while (!gone() && now() != '"')
            word += take();
        if (!gone()) take();
        return word;
    }

    void takeBreak() {
        if (now() == '\r') {
            take();
            if (now() == '\n') take();
        } else if (now() == '\n') {
            take();
        }
    }

    void finish() {
        while (isBlank(now()))
            take();
        if (now() == ',')
            take();
        else
            takeBreak();
    }

    static double valueOf(const std::string& word) {
        std::string plain;
        std::size_t k = word[0] == '+' || word[0] == '-' ? 1 : 0;
        int digits = 0;
        for (; k < word.size() && std::isdigit(static_cast<unsigned char>(word[k])); ++k)
            ++digits;
        if (k < word.size() && word[k] == '.') {
            for (++k; k < word.size() && std::isdigit(static_cast<unsigned char>(word[k])); ++k)
                ++digits;
        }
        if (digits == 0) throw RunTimeError(13);
        plain = word.substr(0, k);
        if (k < word.size() && std::string("eEdD").find(word[k]) != std::string::npos) {
            std::string exponent = word.substr(k + 1);
            std::size_t first = !exponent.empty() && (exponent[0] == '+' || exponent[0] == '-') ? 1 : 0;
            if (first == exponent.size() ||
                exponent.find_first_not_of("0123456789", first) != std::string::npos)
                throw RunTimeError(13);
            plain += "e" + exponent;
        } else if (k < word.size()) {
            throw RunTimeError(13);
        }
        const double value = std::strtod(plain.c_str(), nullptr);
        if (std::isinf(value)) throw RunTimeError(13);
        const bool tooSmall = value == 0 && word.substr(0, k).find_first_of("123456789") != std::string::npos;
        return tooSmall ? 0 : value;
    }

    std::string m_text;
    std::size_t m_at = 0;
};

} // namespace korvel
