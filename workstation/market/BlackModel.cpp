// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/BlackModel.h"

#include <algorithm>
#include <cmath>

namespace ws {

namespace {

// An index market's usual shape: low strikes cost more volatility than high ones.
constexpr double kSkew = -0.25;
constexpr double kCurve = 0.60;
constexpr double kSmileYears = 0.06;  // keeps the smile of the last days from becoming a spike
constexpr double kLowest = 0.5, kHighest = 3.0;

}  // namespace

double NormalCdf(double X) { return 0.5 * std::erfc(-X / std::sqrt(2.0)); }

double BlackPrice(const TBlackInput& Input, bool IsCall) {
    const double F = Input.Forward, K = Input.Strike;
    const double Deviation = Input.Volatility * std::sqrt(std::max(Input.Years, 0.0));
    const double Sign = IsCall ? 1.0 : -1.0;
    if (!(Deviation > 0.0) || !(F > 0.0) || !(K > 0.0)) return Input.Discount * std::max(Sign * (F - K), 0.0);
    const double D1 = std::log(F / K) / Deviation + 0.5 * Deviation;
    const double D2 = D1 - Deviation;
    const double Value = Sign * (F * NormalCdf(Sign * D1) - K * NormalCdf(Sign * D2));
    return Input.Discount * std::max(Value, 0.0);
}

double SmileVolatility(double Base, double Forward, double Strike, double Years) {
    if (!(Forward > 0.0) || !(Strike > 0.0)) return Base;
    const double X = std::log(Strike / Forward) / std::sqrt(std::max(Years, 0.0) + kSmileYears);
    return Base * std::clamp(1.0 + kSkew * X + kCurve * X * X, kLowest, kHighest);
}

}  // namespace ws
