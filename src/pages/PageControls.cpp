#include "pages/PageControls.h"

#include "platform/qt/ControlHelpers.h"
#include "services/Conversions.h"
#include "services/MessageCatalogue.h"
#include "services/VigilError.h"

#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QTimer>

namespace {
// A mouse press that gives the focus also places the cursor, which would undo a selection
// made at once; the selection waits for the press to be handled.
class SelectAllOnFocusFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            if (auto* box = qobject_cast<QLineEdit*>(watched))
                QTimer::singleShot(0, box, &QLineEdit::selectAll);
        }
        return false;
    }
};
} // namespace

void FillCombo(QComboBox& combo, std::span<const ComboEntry> entries)
{
    combo.clear();
    for (const ComboEntry& entry : entries)
        AddComboItem(combo, GetMessage(entry.messageId, QLatin1String(entry.fallback)), entry.data);
    combo.setCurrentIndex(-1);
}

void MakeReadOnly(QComboBox& combo)
{
    combo.setFocusPolicy(Qt::NoFocus);
    combo.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SelectAllOnFocus(QLineEdit& box)
{
    box.installEventFilter(new SelectAllOnFocusFilter(&box));
}

std::optional<qint32> WholeNumberWithin(const QString& text, qint32 lowest, qint32 highest)
{
    if (!IsNumeric(text))
        return std::nullopt;
    try {
        const qint32 number = ToLong(text);
        if (number >= lowest && number <= highest)
            return number;
    } catch (const VigilError&) {
        // Too large for a whole number: outside the bounds all the same.
    }
    return std::nullopt;
}
