#include "sim/SimKnobReaders.h"

#include <algorithm>

namespace SimKnobReaders {
void refuse(QString& error, const QString& name, const QString& what)
{
    if (error.isEmpty())
        error = QStringLiteral("the knob \"%1\" %2").arg(name, what);
}

QByteArray text(const SimKnobs& knobs, const QString& name, const QString& defaultText,
                qsizetype shortest, qsizetype longest, QString& error)
{
    const QString text = knobs.text(name, defaultText);
    const bool bPrintable = std::all_of(
        text.begin(), text.end(), [](QChar c) { return c.unicode() >= 32 && c.unicode() <= 126; });
    if (text.size() < shortest || text.size() > longest || !bPrintable) {
        refuse(error, name,
               QStringLiteral("must be %1 to %2 printable ASCII characters")
                   .arg(shortest)
                   .arg(longest));
        return defaultText.toLatin1();
    }
    return text.toLatin1();
}
} // namespace SimKnobReaders
