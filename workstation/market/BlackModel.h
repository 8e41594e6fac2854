// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// European options on a forward, after F. Black, "The pricing of commodity contracts", Journal of Financial Economics
// 3 (1976) 167-179:
//   call = D [F N(d1) - K N(d2)],  put = D [K N(-d2) - F N(-d1)]
//   d1 = [ln(F/K) + s^2 T / 2] / (s sqrt T),  d2 = d1 - s sqrt T
// so that call - put = D (F - K) at every volatility.

namespace ws {

struct TBlackInput {
    double Forward = 0.0;  // real price units
    double Strike = 0.0;
    double Years = 0.0;       // to expiry
    double Volatility = 0.0;  // per year
    double Discount = 1.0;    // D: present value of one unit paid at expiry
};

// The standard normal distribution function.
double NormalCdf(double X);

// The discounted value. Without time or volatility, or with a forward or strike that is not above 0, the discounted
// value of exercising: the limit of the formula. Never negative, never NaN for finite input.
double BlackPrice(const TBlackInput& Input, bool IsCall);

// Volatility by moneyness: Base * (1 + Skew x + Curve x^2) with x = ln(Strike / Forward) / sqrt(Years + a few weeks),
// the same for call and put. Stays between a half and three times Base, which the quadratic would leave far away.
double SmileVolatility(double Base, double Forward, double Strike, double Years);

}  // namespace ws
