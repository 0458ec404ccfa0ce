#include "platform/wx/colours.h"

#include <wx/window.h>

#include <algorithm>
#include <cmath>

namespace brasquelin {

namespace {

double linear(unsigned char channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const wxColour& colour) {
    return 0.2126 * linear(colour.Red()) + 0.7152 * linear(colour.Green()) + 0.0722 * linear(colour.Blue());
}

}  // namespace

bool isDark(const wxColour& colour) {
    return colour.GetLuminance() < 0.5;
}

wxColour mixed(const wxColour& from, const wxColour& to, double share) {
    const auto mix = [share](int a, int b) { return static_cast<unsigned char>(a + (b - a) * share); };
    return wxColour(mix(from.Red(), to.Red()), mix(from.Green(), to.Green()), mix(from.Blue(), to.Blue()));
}

double contrast(const wxColour& left, const wxColour& right) {
    const auto [low, high] = std::minmax({luminance(left), luminance(right)});
    return (high + 0.05) / (low + 0.05);
}

wxColour dimmed(const wxColour& text, const wxColour& ground) {
    constexpr double enough = 4.6;  // whatever rounding takes from it
    constexpr double step = 0.02;
    double share = 0;
    while (share < 0.6 && contrast(mixed(text, ground, share + step), ground) >= enough) share += step;
    return mixed(text, ground, share);
}

wxColour dimmedText(const wxWindow& window) {
    return dimmed(window.GetForegroundColour(), window.GetBackgroundColour());
}

}  // namespace brasquelin
