// Free-format list input against its letter-by-letter twin. The first byte is the chunk size, the second how
// many calls follow, one a byte; the rest is the text.
#include "basic/ListInput.h"
#include "fakes/LetterByLetterInput.h"
#include "fuzz/Fuzzing.h"

#include <bit>

namespace korvel {

namespace {

struct Outcome {
    int failure = 0;
    std::string text;
    std::uint64_t number = 0; // its bits
    bool operator==(const Outcome&) const = default;
};

Outcome outcomeOf(auto& input, std::uint8_t call) {
    Outcome outcome;
    double number = 0;
    outcome.failure = failureOf({errors::overflow, errors::typeMismatch, errors::inputPastEndOfFile}, [&] {
        switch (call % 6) {
        case 0: number = input.number(); break;
        case 1: number = input.integer(); break;
        case 2: outcome.text = input.text(); break;
        case 3: input.skip(); break;
        case 4: outcome.text = input.line(); break;
        case 5: number = input.atEnd(); break;
        }
    });
    if (!outcome.failure) outcome.number = std::bit_cast<std::uint64_t>(number);
    return outcome;
}

// Several numbers at once are the same as one by one.
void requireSameNumbers(const std::string& text, std::size_t count, std::size_t chunkSize) {
    TextSource source(text);
    ListInput input(source, chunkSize);
    LetterByLetterInput twin(text);
    std::vector<double> numbers(count);
    const auto known = {errors::typeMismatch, errors::inputPastEndOfFile};
    const int failure = failureOf(known, [&] { input.numbers(numbers); });
    const int twinsFailure = failureOf(known, [&] {
        for (const double number : numbers) {
            const double expected = twin.number();
            require(failure || std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(expected),
                    "numbers are read as the twin reads them");
        }
    });
    require(failure == twinsFailure, "numbers fail as the twin fails");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t chunkSize = data[0] + std::size_t(1);
    const std::size_t calls = std::min<std::size_t>(data[1] % 64, size - 2);
    const std::string text = textOf(data + 2 + calls, size - 2 - calls);
    TextSource source(text);
    ListInput input(source, chunkSize);
    LetterByLetterInput twin(text);
    for (std::size_t k = 0; k < calls; ++k) {
        const Outcome expected = outcomeOf(twin, data[2 + k]);
        require(outcomeOf(input, data[2 + k]) == expected, "a field is read as the twin reads it");
        if (expected.failure) break;
        require(input.bytesConsumed() <= text.size(), "no more bytes are taken than there are");
    }
    requireSameNumbers(text, calls, chunkSize);
    return 0;
}

} // namespace korvel
