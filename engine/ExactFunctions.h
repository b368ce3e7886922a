// Logarithm, exponential and normal quantile built only from operations that every machine rounds alike, so
// that a run gives the same figures everywhere. Good to about 1e-15, the quantile to 1e-15 of its value.
#pragma once

namespace korvel::engine {

double naturalLog(double value);            // value > 0
double exponential(double value);           // 0 below -700, capped above 700
double power(double base, double exponent); // base > 0, else 0
double normalQuantile(double probability);  // 0 < probability < 1

} // namespace korvel::engine
