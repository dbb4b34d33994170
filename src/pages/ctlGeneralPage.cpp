#include "pages/ctlGeneralPage.h"

#include "services/MessageCatalogue.h"

#include <QLabel>

namespace {
constexpr int Margin = 8;
constexpr int ColumnGap = 12;
constexpr int RowGap = 6;
constexpr qint32 MsgName = 102;
constexpr qint32 MsgPort = 103;
constexpr qint32 MsgType = 104;
} // namespace

ctlGeneralPage::ctlGeneralPage(QWidget* parent)
    : QWidget(parent)
    , m_lblName(addLabel("lblName"))
    , m_lblPort(addLabel("lblPort"))
    , m_lblType(addLabel("lblType"))
    , m_lblNameData(addLabel("lblNameData"))
    , m_lblPortData(addLabel("lblPortData"))
    , m_lblTypeData(addLabel("lblTypeData"))
{
    setContentsMargins(Margin, Margin, Margin, Margin);
    // A port or a type is worth copying into a support call.
    for (QLabel* value : {m_lblNameData, m_lblPortData, m_lblTypeData})
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

QLabel* ctlGeneralPage::addLabel(const char* objectName)
{
    auto* label = new QLabel(this);
    label->setObjectName(QLatin1String(objectName));
    return label;
}

void ctlGeneralPage::Setup(const QString& sName, const QString& sPort, const QString& sType, bool,
                           bool)
{
    m_lblName->setText(GetMessage(MsgName, QStringLiteral("name")));
    m_lblPort->setText(GetMessage(MsgPort, QStringLiteral("port")));
    m_lblType->setText(GetMessage(MsgType, QStringLiteral("type")));
    m_lblNameData->setText(sName);
    m_lblPortData->setText(sPort);
    m_lblTypeData->setText(sType);
    placeLabels();
}

void ctlGeneralPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeLabels();
}

// The values start after the widest caption, whatever the language, and stretch to the
// right edge.
void ctlGeneralPage::placeLabels()
{
    const QRect inner = contentsRect();
    int captionWidth = 0;
    for (const QLabel* caption : {m_lblName, m_lblPort, m_lblType})
        captionWidth = std::max(captionWidth, caption->sizeHint().width());
    const int valueLeft = inner.left() + captionWidth + ColumnGap;
    const int rowHeight = fontMetrics().height();
    const std::pair<QLabel*, QLabel*> rows[] = {
        {m_lblName, m_lblNameData}, {m_lblPort, m_lblPortData}, {m_lblType, m_lblTypeData}};
    int top = inner.top();
    for (const auto& [caption, value] : rows) {
        caption->setGeometry(inner.left(), top, captionWidth, rowHeight);
        value->setGeometry(valueLeft, top, std::max(0, inner.right() + 1 - valueLeft), rowHeight);
        top += rowHeight + RowGap;
    }
}
