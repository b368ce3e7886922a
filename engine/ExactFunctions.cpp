#include "engine/ExactFunctions.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace korvel::engine {

namespace {

constexpr double logOf2High = 6.93147180369123816490e-01; // the logarithm of 2 in two parts
constexpr double logOf2Low = 1.90821492927058770002e-10;

template <std::size_t N>
double polynomial(const std::array<double, N>& coefficients, double x) {
    double sum = 0;
    for (auto i = N; i-- > 0;)
        sum = sum * x + coefficients[i];
    return sum;
}

constexpr auto oddReciprocals = [] {
    std::array<double, 11> values{}; // 1, 1/3, 1/5 ...
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = 1.0 / static_cast<double>(2 * i + 1);
    return values;
}();

constexpr auto factorialReciprocals = [] {
    std::array<double, 14> values{}; // 1, 1, 1/2, 1/6 ... as far as they count
    double factorial = 1;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 1) factorial *= static_cast<double>(i);
        values[i] = 1 / factorial;
    }
    return values;
}();

// For exponents from -1022 to 1023.
double powerOf2(int exponent) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
}

// The rational approximations of algorithm AS 241: the middle, and the two parts of the tails.
constexpr std::array<double, 8> middleOver{
    3.3871328727963666080e0, 1.3314166789178437745e2, 1.9715909503065514427e3, 1.3731693765509461125e4,
    4.5921953931549871457e4, 6.7265770927008700853e4, 3.3430575583588128105e4, 2.5090809287301226727e3};
constexpr std::array<double, 8> middleUnder{1.0,
                                            4.2313330701600911252e1,
                                            6.8718700749205790830e2,
                                            5.3941960214247511077e3,
                                            2.1213794301586595867e4,
                                            3.9307895800092710610e4,
                                            2.8729085735721942674e4,
                                            5.2264952788528545610e3};
constexpr std::array<double, 8> tailOver{1.42343711074968357734e0,  4.63033784615654529590e0,
                                         5.76949722146069140550e0,  3.64784832476320460504e0,
                                         1.27045825245236838258e0,  2.41780725177450611770e-1,
                                         2.27238449892691845833e-2, 7.74545014278341407640e-4};
constexpr std::array<double, 8> tailUnder{1.0,
                                          2.05319162663775882187e0,
                                          1.67638483018380384940e0,
                                          6.89767334985100004550e-1,
                                          1.48103976427480074590e-1,
                                          1.51986665636164571966e-2,
                                          5.47593808499534494600e-4,
                                          1.05075007164441684324e-9};
constexpr std::array<double, 8> farOver{6.65790464350110377720e0,  5.46378491116411436990e0,
                                        1.78482653991729133580e0,  2.96560571828504891230e-1,
                                        2.65321895265761230930e-2, 1.24266094738807843860e-3,
                                        2.71155556874348757815e-5, 2.01033439929228813265e-7};
constexpr std::array<double, 8> farUnder{1.0,
                                         5.99832206555887937690e-1,
                                         1.36929880922735805310e-1,
                                         1.48753612908506148525e-2,
                                         7.86869131145613259100e-4,
                                         1.84631831751005468180e-5,
                                         1.42151175831644588870e-7,
                                         2.04426310338993978564e-15};

} // namespace

double naturalLog(double value) {
    int exponent = 0;
    double mantissa = std::frexp(value, &exponent); // 0.5 to 1
    if (mantissa < 0.70710678118654752) {
        mantissa *= 2;
        --exponent;
    }
    // log m = 2 (s + s^3/3 + s^5/5 + ...) with s = (m - 1) / (m + 1), at most 0.172.
    const double s = (mantissa - 1) / (mantissa + 1);
    return exponent * logOf2High + (2 * s * polynomial(oddReciprocals, s * s) + exponent * logOf2Low);
}

double exponential(double value) {
    if (value < -700) return 0;
    value = std::min(value, 700.0);
    const double doublings = std::floor(value * (1 / (logOf2High + logOf2Low)) + 0.5);
    const double rest = (value - doublings * logOf2High) - doublings * logOf2Low;
    return polynomial(factorialReciprocals, rest) * powerOf2(static_cast<int>(doublings));
}

double power(double base, double exponent) {
    return base > 0 ? exponential(exponent * naturalLog(base)) : 0;
}

double normalQuantile(double probability) {
    const double q = probability - 0.5;
    if (std::abs(q) <= 0.425) {
        const double r = 0.180625 - q * q;
        return q * polynomial(middleOver, r) / polynomial(middleUnder, r);
    }
    const double tail = std::min(probability, 1 - probability);
    const double r = std::sqrt(-naturalLog(tail));
    const double size = r <= 5 ? polynomial(tailOver, r - 1.6) / polynomial(tailUnder, r - 1.6)
                               : polynomial(farOver, r - 5) / polynomial(farUnder, r - 5);
    return q < 0 ? -size : size;
}

} // namespace korvel::engine
