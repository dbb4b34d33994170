#include "pages/ctlDominoCPage3_1.h"

#include "pages/ControlRefresh.h"
#include "pages/NamedControl.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgLogoList = 182;
} // namespace

ctlDominoCPage3_1::ctlDominoCPage3_1(QWidget* parent)
    : HandlerPage(parent)
    , fraLogoList(NamedControl<QGroupBox>("fraLogoList"))
    , txtLogoList(NamedControl<QPlainTextEdit>("txtLogoList"))
{
    txtLogoList->setReadOnly(true);
    txtLogoList->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtLogoList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtLogoList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto* logos = new QVBoxLayout(fraLogoList);
    logos->addWidget(txtLogoList);
    auto* page = new QVBoxLayout(this);
    page->addWidget(fraLogoList);
}

void ctlDominoCPage3_1::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    Caption(*fraLogoList, MsgLogoList, QStringLiteral("logo list"));
    m_Handler_StatusChanged();
}

void ctlDominoCPage3_1::m_Handler_StatusChanged()
{
    if (m_Handler)
        ShowLogoList();
}

// One name a line, up to and with the first empty name: a list that isn't empty ends in a
// line break.
void ctlDominoCPage3_1::ShowLogoList()
{
    QString text;
    for (qint32 index = 1;; ++index) {
        const QString name = m_Handler->GetLogoList(index);
        if (!text.isEmpty())
            text += QLatin1Char('\n');
        text += name;
        if (name.isEmpty())
            break;
    }
    ShowText(*txtLogoList, text);
}
