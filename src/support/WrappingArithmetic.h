#pragma once

namespace Vantrel::Pictel {

// Integer coordinates wrap silently; signed overflow would be undefined, so the sums are formed in unsigned numbers.

constexpr int wrappingAdd(int left, int right)
{
    return static_cast<int>(static_cast<unsigned>(left) + static_cast<unsigned>(right));
}

constexpr int wrappingSubtract(int left, int right)
{
    return static_cast<int>(static_cast<unsigned>(left) - static_cast<unsigned>(right));
}

constexpr int wrappingMultiply(int left, int right)
{
    return static_cast<int>(static_cast<unsigned>(left) * static_cast<unsigned>(right));
}

constexpr int wrappingNegate(int value)
{
    return wrappingSubtract(0, value);
}

/// The absolute value; the smallest number has none and stays as it is.
constexpr int wrappingAbsolute(int value)
{
    return value < 0 ? wrappingNegate(value) : value;
}

} // namespace Vantrel::Pictel
