#include "printing/ui/frmIdentifiers.h"

#include "platform/qt/AddInWindow.h"
#include "printing/ui/frmEditIdentifier.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>

namespace {
const QString Context = QStringLiteral("frmIdentifiers - ");
const QString Clash =
    QStringLiteral("unable to add identifier because one with that name already exists.");
constexpr int InitialRows = 8;
} // namespace

frmIdentifiers::frmIdentifiers(QWidget* parent)
    : QDialog(parent)
    , lvwIdentifiers(new QTreeWidget(this))
    , cmdAdd(new QPushButton(GetMessage(450), this))
    , cmdEdit(new QPushButton(GetMessage(451), this))
    , cmdRemove(new QPushButton(GetMessage(452), this))
    , cmdOK(new QPushButton(GetMessage(453), this))
    , cmdCancel(new QPushButton(GetMessage(454), this))
{
    setObjectName(QStringLiteral("frmIdentifiers"));
    lvwIdentifiers->setObjectName(QStringLiteral("lvwIdentifiers"));
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdEdit->setObjectName(QStringLiteral("cmdEdit"));
    cmdRemove->setObjectName(QStringLiteral("cmdRemove"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    setWindowTitle(GetMessage(447));

    lvwIdentifiers->setHeaderLabels({GetMessage(448), GetMessage(449)});
    lvwIdentifiers->headerItem()->setData(IdentifierColumn, Qt::UserRole,
                                          QStringLiteral("Printer Identifier"));
    lvwIdentifiers->headerItem()->setData(PrinterColumn, Qt::UserRole, QStringLiteral("Printer"));
    lvwIdentifiers->setRootIsDecorated(false);
    lvwIdentifiers->setUniformRowHeights(true);
    lvwIdentifiers->setAllColumnsShowFocus(true);
    lvwIdentifiers->header()->setStretchLastSection(false);

    QSize button;
    for (QPushButton* each : {cmdAdd, cmdEdit, cmdRemove, cmdOK, cmdCancel})
        button = button.expandedTo(each->sizeHint());
    for (QPushButton* each : {cmdAdd, cmdEdit, cmdRemove, cmdOK, cmdCancel})
        each->setFixedSize(button);
    cmdOK->setDefault(true);

    const int margin = fontMetrics().horizontalAdvance(QStringLiteral("II"));
    const int column = fontMetrics().horizontalAdvance(QStringLiteral("XXXXXXXXXX"));
    // Five buttons in a row, or two columns at their least width, whichever is wider.
    const int rowHeight = lvwIdentifiers->fontMetrics().height() + 6;
    setMinimumSize(qMax(5 * button.width() + 6 * margin, 2 * column + 3 * margin),
                   button.height() * 2 + 4 * margin + 3 * rowHeight);
    resize(qMax(minimumWidth(), 4 * column), minimumHeight() + InitialRows * rowHeight);

    connect(cmdAdd, &QPushButton::clicked, this, &frmIdentifiers::cmdAdd_Click);
    connect(cmdEdit, &QPushButton::clicked, this, &frmIdentifiers::cmdEdit_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmIdentifiers::cmdRemove_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmIdentifiers::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmIdentifiers::cmdCancel_Click);
    connect(lvwIdentifiers, &QTreeWidget::itemDoubleClicked, this, &frmIdentifiers::cmdEdit_Click);
}

bool frmIdentifiers::Edit(IdentifierTable& table, const QStringList& groupPrinters,
                          const QStringList& allPrinters)
{
    Setup(table, groupPrinters, allPrinters);
    exec();
    if (CancelledByUser())
        return false;
    table.useAllPrinters = m_bUseAllPrinters;
    table.entries = m_componentGIDInfo;
    return true;
}

void frmIdentifiers::Setup(const IdentifierTable& table, const QStringList& groupPrinters,
                           const QStringList& allPrinters)
{
    m_componentGIDInfo = table.entries;
    m_bUseAllPrinters = table.useAllPrinters;
    m_colGroupPrinters = groupPrinters;
    m_colAllPrinters = allPrinters;
    m_sTag.clear();
    SetupListView();
}

void frmIdentifiers::SetupListView()
{
    RunTrapped(Context + QStringLiteral("SetupListView"), [this] {
        lvwIdentifiers->clear();
        for (const clsGroupIdentifier& entry : m_componentGIDInfo)
            new QTreeWidgetItem(lvwIdentifiers, {entry.m_strPrinterIdentifier, entry.m_strPrinter});
    });
}

void frmIdentifiers::SaveIdentifierInfo()
{
    RunTrapped(Context + QStringLiteral("SaveIdentifierInfo"), [this] {
        GroupIdentifiers rows;
        for (int i = 0; i < lvwIdentifiers->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = lvwIdentifiers->topLevelItem(i);
            rows.append({row->text(IdentifierColumn), row->text(PrinterColumn)});
        }
        m_componentGIDInfo = rows;
    });
}

QTreeWidgetItem* frmIdentifiers::rowWithIdentifier(const QString& identifier,
                                                   const QTreeWidgetItem* except) const
{
    for (int i = 0; i < lvwIdentifiers->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = lvwIdentifiers->topLevelItem(i);
        if (row != except && row->text(IdentifierColumn) == identifier)
            return row;
    }
    return nullptr;
}

void frmIdentifiers::cmdAdd_Click()
{
    RunTrapped(Context + QStringLiteral("cmdAdd_Click"), [this] {
        QString printer;
        QString identifier;
        if (!frmEditIdentifier::CreateAndShow_AddIdentifier(
                m_colAllPrinters, m_colGroupPrinters, this, m_bUseAllPrinters, printer, identifier))
            return;
        if (rowWithIdentifier(identifier)) {
            ShowError(Clash, QStringLiteral("cmdAdd_Click"));
            return;
        }
        lvwIdentifiers->setCurrentItem(new QTreeWidgetItem(lvwIdentifiers, {identifier, printer}));
    });
}

void frmIdentifiers::cmdEdit_Click()
{
    RunTrapped(Context + QStringLiteral("cmdEdit_Click"), [this] {
        QTreeWidgetItem* row = lvwIdentifiers->currentItem();
        if (!row || !row->isSelected())
            return;
        QString printer = row->text(PrinterColumn);
        QString identifier = row->text(IdentifierColumn);
        if (!frmEditIdentifier::CreateAndShow_AddIdentifier(
                m_colAllPrinters, m_colGroupPrinters, this, m_bUseAllPrinters, printer, identifier))
            return;
        // A row may keep its own identifier.
        if (rowWithIdentifier(identifier, row)) {
            ShowError(Clash, QStringLiteral("cmdEdit_Click"));
            return;
        }
        row->setText(IdentifierColumn, identifier);
        row->setText(PrinterColumn, printer);
    });
}

void frmIdentifiers::cmdRemove_Click()
{
    RunTrapped(Context + QStringLiteral("cmdRemove_Click"), [this] {
        QTreeWidgetItem* row = lvwIdentifiers->currentItem();
        if (!row || !row->isSelected())
            return;
        // Counted from 1: the row before the removed one, or the first.
        const int index = lvwIdentifiers->indexOfTopLevelItem(row) + 1;
        delete row;
        if (lvwIdentifiers->topLevelItemCount() > 0)
            lvwIdentifiers->setCurrentItem(lvwIdentifiers->topLevelItem(qMax(1, index - 1) - 1));
    });
}

void frmIdentifiers::cmdOK_Click()
{
    RunTrapped(Context + QStringLiteral("cmdOK_Click"), [this] {
        m_sTag = QStringLiteral("OK");
        SaveIdentifierInfo();
        accept();
    });
}

void frmIdentifiers::cmdCancel_Click()
{
    RunTrapped(Context + QStringLiteral("cmdCancel_Click"), [this] {
        m_sTag = QStringLiteral("Cancel");
        reject();
    });
}

void frmIdentifiers::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    RunTrapped(Context + QStringLiteral("Form_Resize"), [this] { layoutControls(); });
}

// The list's inner width is known only once it is shown.
void frmIdentifiers::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    RunTrapped(Context + QStringLiteral("Form_Show"), [this] { layoutControls(); });
}

// The list fills the form above the buttons, and its two columns share its width.
void frmIdentifiers::layoutControls()
{
    const int margin = fontMetrics().horizontalAdvance(QStringLiteral("II"));
    const int minColumn = fontMetrics().horizontalAdvance(QStringLiteral("XXXXXXXXXX"));
    const QSize button = cmdOK->size();
    const int buttonTop = height() - margin - button.height();
    lvwIdentifiers->setGeometry(margin, margin, qMax(0, width() - 2 * margin),
                                qMax(0, buttonTop - 2 * margin));
    const int inner = lvwIdentifiers->width() - 2 * lvwIdentifiers->frameWidth() -
                      (lvwIdentifiers->verticalScrollBar()->isVisible()
                           ? lvwIdentifiers->verticalScrollBar()->width()
                           : 0);
    const int column = qMax(minColumn, inner / 2);
    lvwIdentifiers->setColumnWidth(IdentifierColumn, column);
    lvwIdentifiers->setColumnWidth(PrinterColumn, column);

    // Add, Edit, Remove from the left; OK and Cancel at the right.
    int left = margin;
    for (QPushButton* each : {cmdAdd, cmdEdit, cmdRemove}) {
        each->move(left, buttonTop);
        left += button.width() + margin;
    }
    cmdCancel->move(width() - margin - button.width(), buttonTop);
    cmdOK->move(cmdCancel->x() - margin - button.width(), buttonTop);
}
