#pragma once

#include <QList>

namespace Vantrel::Pictel {

/// How many objects further on: far enough for the memory to answer in time, and not more than it remembers to do.
constexpr qsizetype ReadAheadDistance = 4;

/// Asks the memory for what a walk over many objects is about to look at, the first 192 bytes of an object further on.
/// A walk that only glances at each object otherwise mostly waits. \a place may lie outside of the list.
///
/// Always inline: GCC drops calls of a function that does nothing but this, as having no effect.
template <typename Object>
[[gnu::always_inline]] inline void readAhead(const QList<Object *> &objects, qsizetype place)
{
#if defined(__GNUC__)
    if (place < 0 || place >= objects.size())
        return;
    const char *object = reinterpret_cast<const char *>(objects.at(place));
    __builtin_prefetch(object);
    __builtin_prefetch(object + 64);
    __builtin_prefetch(object + 128);
#else
    Q_UNUSED(objects)
    Q_UNUSED(place)
#endif
}

/// Asks the memory for the line in which \a object begins.
template <typename Object>
[[gnu::always_inline]] inline void readSoon(const Object &object)
{
#if defined(__GNUC__)
    __builtin_prefetch(&object);
#else
    Q_UNUSED(object)
#endif
}

/// Asks the memory for \a object and what was allocated along with it, which mostly lies right behind it: an object
/// that is about to go is looked at in many places, and each would wait for the memory otherwise.
template <typename Object>
[[gnu::always_inline]] inline void readAll(const Object *object)
{
#if defined(__GNUC__)
    constexpr int reach = 1024;
    constexpr int line = 64;
    for (int offset = 0; offset < reach; offset += line)
        __builtin_prefetch(reinterpret_cast<const char *>(object) + offset);
#else
    Q_UNUSED(object)
#endif
}

} // namespace Vantrel::Pictel
