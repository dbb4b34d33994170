#include "pages/ctlDominoAPage3.h"

#include "pages/NamedControl.h"
#include "services/MessageCatalogue.h"

#include <QListWidget>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgProcessing = 283;
}

ctlDominoAPage3::ctlDominoAPage3(QWidget* parent)
    : HandlerPage(parent)
    , m_lstAlarm(NamedControl<QListWidget>("lstAlarm", this))
{
    // An alarm's text can be long; it wraps rather than hiding behind the edge.
    m_lstAlarm->setWordWrap(true);
    m_lstAlarm->setResizeMode(QListView::Adjust);
    auto* page = new QVBoxLayout(this);
    page->addWidget(m_lstAlarm);
}

void ctlDominoAPage3::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    showLines({GetMessage(MsgProcessing, QStringLiteral("processing..."))});
}

void ctlDominoAPage3::m_Handler_StatusChanged()
{
    // The list is a view of what the handler holds; a refresh that fails leaves it as it was.
    IgnoringFailure([this] {
        if (!m_Handler)
            return;
        QStringList lines;
        m_Handler->PopulateAlertListBox(lines);
        showLines(lines);
    });
}

// Every poll brings the same alarms again; an unchanged list keeps the operator's place in it.
void ctlDominoAPage3::showLines(const QStringList& lines)
{
    QStringList shown;
    for (int row = 0; row < m_lstAlarm->count(); ++row)
        shown.append(m_lstAlarm->item(row)->text());
    if (shown == lines)
        return;
    m_lstAlarm->clear();
    for (const QString& line : lines) {
        auto* item = new QListWidgetItem(line, m_lstAlarm);
        item->setToolTip(line);
    }
}
