#include "FontNames.h"

#include <QFont>
#include <QRegularExpression>

#include <array>

namespace GraphViewer {

namespace {

struct StandardFace
{
    const char *prefix;
    const char *family;
    QFont::StyleHint hint;
};

// The faces every PostScript printer had, under the names that today's systems know.
constexpr std::array<StandardFace, 6> standardFaces {{
    {"times", "Times", QFont::Serif},
    {"helvetica", "Helvetica", QFont::SansSerif},
    {"arial", "Arial", QFont::SansSerif},
    {"courier", "Courier", QFont::Monospace},
    {"monospace", "monospace", QFont::Monospace},
    {"sans", "sans-serif", QFont::SansSerif},
}};

const StandardFace *standardFace(const QString &family)
{
    for (const StandardFace &face : standardFaces) {
        if (family.startsWith(QLatin1String(face.prefix), Qt::CaseInsensitive))
            return &face;
    }
    return nullptr;
}

QStringList familiesOf(const QString &face)
{
    QStringList families;
    for (const QString &family : face.split(u',', Qt::SkipEmptyParts))
        families << family.trimmed();
    return families;
}

// Takes the style words off "Times-BoldItalic", "Helvetica-Oblique", "DejaVu Sans Bold"; true when there was one.
bool takeStyle(QString &family, const QString &words)
{
    const QRegularExpression suffix(QStringLiteral("(?<=[- a-z])(%1)(?=$|[ ,]|[A-Z])").arg(words));
    const bool found = family.contains(suffix);
    family.remove(suffix);
    return found;
}

} // namespace

QFont fontFromFace(const QString &face)
{
    QStringList families = familiesOf(face);
    if (families.isEmpty())
        families << QStringLiteral("Times");

    QString &first = families.first();
    const bool bold = takeStyle(first, QStringLiteral("Bold"));
    const bool italic = takeStyle(first, QStringLiteral("Italic|Oblique"));
    first.remove(QRegularExpression(QStringLiteral("(-Roman|-Regular|[- ])+$")));

    const StandardFace *standard = standardFace(first);
    if (standard && first.size() == QLatin1String(standard->prefix).size())
        first = QLatin1String(standard->family);

    QFont font(families);
    font.setStyleHint(standard ? standard->hint : QFont::AnyStyle);
    font.setBold(bold);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace GraphViewer
