#include "pages/ctlDominoCPage3.h"

#include "pages/ControlRefresh.h"
#include "pages/NamedControl.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgFileList = 179;
constexpr qint32 MsgCurrentFile = 180;
constexpr qint32 MsgSetMessage = 181;

// A name as the list shows it: without the blanks around it and a Cr at its end.
QString shownName(const QString& name)
{
    qsizetype first = 0;
    qsizetype end = name.size();
    while (first < end && name.at(first) == QLatin1Char(' '))
        ++first;
    while (end > first && name.at(end - 1) == QLatin1Char(' '))
        --end;
    QString shown = name.mid(first, end - first);
    if (shown.endsWith(QLatin1Char('\r')))
        shown.chop(1);
    return shown;
}
} // namespace

ctlDominoCPage3::ctlDominoCPage3(QWidget* parent)
    : HandlerPage(parent)
    , fraFileList(NamedControl<QGroupBox>("fraFileList"))
    , lblCurrentFile(NamedControl<QLabel>("lblCurrentFile"))
    , txtCurrentFile(NamedControl<QLineEdit>("txtCurrentFile"))
    , lstFileList(NamedControl<QListWidget>("lstFileList"))
    , cmdSetMessage(NamedControl<QPushButton>("cmdSetMessage"))
{
    txtCurrentFile->setReadOnly(true);
    // The printer can't select the empty name: the button waits for a file.
    cmdSetMessage->setEnabled(false);

    auto* files = new QGridLayout(fraFileList);
    files->addWidget(lblCurrentFile, 0, 0);
    files->addWidget(txtCurrentFile, 0, 1);
    files->addWidget(lstFileList, 1, 0, 1, 2);
    files->addWidget(cmdSetMessage, 2, 0, 1, 2, Qt::AlignRight);
    files->setColumnStretch(1, 1);
    files->setRowStretch(1, 1);
    auto* page = new QVBoxLayout(this);
    page->addWidget(fraFileList);

    connect(lstFileList, &QListWidget::currentRowChanged, this, &ctlDominoCPage3::followSelection);
    connect(cmdSetMessage, &QPushButton::clicked, this, &ctlDominoCPage3::cmdSetMessage_Click);
}

void ctlDominoCPage3::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    Caption(*fraFileList, MsgFileList, QStringLiteral("file list"));
    Caption(*lblCurrentFile, MsgCurrentFile, QStringLiteral("current"));
    Caption(*cmdSetMessage, MsgSetMessage, QStringLiteral("set"));
    m_Handler_StatusChanged();
}

void ctlDominoCPage3::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    txtCurrentFile->setText(m_Handler->CurrentFile());
    ShowFileList();
}

// The list ends with its first empty name, which stays as its last row.
void ctlDominoCPage3::ShowFileList()
{
    QStringList names;
    for (qint32 index = 1;; ++index) {
        names.append(shownName(m_Handler->GetFileList(index)));
        if (names.last().isEmpty())
            break;
    }
    ShowLines(*lstFileList, names);
    followSelection();
}

void ctlDominoCPage3::followSelection()
{
    const QListWidgetItem* selected = lstFileList->currentItem();
    cmdSetMessage->setEnabled(selected && !selected->text().isEmpty());
}

void ctlDominoCPage3::cmdSetMessage_Click()
{
    RunTrapped(context("cmdSetMessage_Click"), [this] {
        const int row = lstFileList->currentRow();
        // The name goes as the printer sent it, first byte and all.
        if (m_Handler && row >= 0)
            m_Handler->SelectMessage(m_Handler->GetDominoFileList(row));
    });
}
