#include "printing/ui/frmDownloads.h"

#include "core/IconFiles.h"
#include "core/PresentTime.h"
#include "platform/qt/FormPosition.h"
#include "platform/qt/LongTime.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>

namespace {
const QString FormName = QStringLiteral("frmDownloads");
const QString RootKey = QStringLiteral("Software\\Orvane\\Vigil\\");
const QString Context = QStringLiteral("frmDownload - ");

const QString NeutralIcon = QStringLiteral("Neutral");
const QString SuccessIcon = QStringLiteral("Success");
const QString ErrorIcon = QStringLiteral("Error");

constexpr QSize InitialSize(640, 240);

struct StatusLook
{
    qint32 messageId;
    QString icon;
};

// The word and icon of a print item status; none for a status the log has no word for.
std::optional<StatusLook> lookOf(qint32 eStatus)
{
    const std::optional<qint32> messageId = StatusMessageId(eStatus);
    if (!messageId)
        return std::nullopt;
    return StatusLook{*messageId, eStatus == PrintItemDone ? SuccessIcon : NeutralIcon};
}

QString withoutLineFeeds(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

// The workstation's own short date and time to the second, without a time zone.
QString dateTimeText(const QDateTime& when)
{
    return QLocale().toString(when.date(), QLocale::ShortFormat) + QLatin1Char(' ') +
           LongTime::text(when);
}
} // namespace

frmDownloads::frmDownloads(QWidget* parent)
    : QWidget(parent, Qt::Window)
    , lvwDownloads(new QTreeWidget(this))
    , cmdOK(new QPushButton(this))
    , cmdClear(new QPushButton(this))
{
    setObjectName(FormName);
    lvwDownloads->setObjectName(QStringLiteral("lvwDownloads"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdClear->setObjectName(QStringLiteral("cmdClear"));

    for (const QString& key : {NeutralIcon, SuccessIcon, ErrorIcon}) {
        const QString path = IconFile(key + QStringLiteral(".ico"));
        m_icons.insert(key, path.isEmpty() ? QIcon() : QIcon(path));
    }

    setWindowTitle(GetMessage(438));
    cmdOK->setText(GetMessage(439));
    cmdClear->setText(GetMessage(440));
    lvwDownloads->setHeaderLabels(
        {GetMessage(441), GetMessage(442), GetMessage(443), GetMessage(444)});
    lvwDownloads->setRootIsDecorated(false);
    lvwDownloads->setUniformRowHeights(true);
    lvwDownloads->setSelectionBehavior(QAbstractItemView::SelectRows);
    lvwDownloads->header()->setStretchLastSection(true);

    const QSize button = cmdOK->sizeHint().expandedTo(cmdClear->sizeHint());
    cmdOK->setFixedSize(button);
    cmdClear->setFixedSize(button);

    connect(cmdOK, &QPushButton::clicked, this, &frmDownloads::cmdOk_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmDownloads::cmdClear_Click);
    resize(InitialSize);
}

void frmDownloads::AddStatusItem(const QString& sPrinter, const QString& sMessage, qint32 eStatus)
{
    RunTrapped(Context + QStringLiteral("AddStatusItem"), [&] {
        if (eStatus != 0) {
            const std::optional<StatusLook> look = lookOf(eStatus);
            QTreeWidgetItem* row =
                writeRow(sPrinter, sMessage, look ? GetMessage(look->messageId) : QString(), false);
            if (look)
                setRowIcon(row, look->icon);
        }
        ShowMe();
    });
}

void frmDownloads::AddErrorItem(const QString& sPrinter, const QString& sMessage, qint32 lCode)
{
    RunTrapped(Context + QStringLiteral("AddErrorItem"), [&] {
        setRowIcon(writeRow(sPrinter, sMessage, QString::number(lCode), true), ErrorIcon);
        ShowMe();
    });
}

void frmDownloads::AddMessageItem(const QString& sPrinter, const QString& sMessage)
{
    if (sMessage.isEmpty())
        return;
    RunTrapped(Context + QStringLiteral("AddMessageItem"), [&] {
        setRowIcon(writeRow(sPrinter, sMessage, QString(), false), NeutralIcon);
        ShowMe();
    });
}

void frmDownloads::ShowMe()
{
    RunTrapped(Context + QStringLiteral("ShowMe"), [this] {
        if (!isVisible()) {
            RestoreFormPosition(*this, FormName, RootKey);
            ShowForm(*this, false);
        }
        raise();
        activateWindow();
    });
}

void frmDownloads::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QSize inner = size();
    const QSize button = cmdOK->size();
    lvwDownloads->setGeometry(0, 0, inner.width(), qMax(0, inner.height() - 2 * button.height()));
    const QPoint ok(qRound(inner.width() - 1.25 * button.width()),
                    qRound(inner.height() - 1.5 * button.height()));
    cmdOK->move(ok);
    cmdClear->move(ok.x() - qRound(1.25 * button.width()), ok.y());
}

void frmDownloads::closeEvent(QCloseEvent* event)
{
    // Closed by its frame it goes as by OK: hidden, its place kept, its rows left.
    cmdOk_Click();
    event->accept();
}

void frmDownloads::cmdOk_Click()
{
    RunTrapped(Context + QStringLiteral("cmdOk_Click"), [this] {
        SaveFormPosition(*this, FormName, RootKey);
        hide();
    });
}

void frmDownloads::cmdClear_Click()
{
    RunTrapped(Context + QStringLiteral("cmdClear_Click"), [this] { lvwDownloads->clear(); });
}

QTreeWidgetItem* frmDownloads::findRow(const QString& sPrinter) const
{
    for (int i = 0; i < lvwDownloads->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = lvwDownloads->topLevelItem(i);
        if (row->text(Printer) == sPrinter)
            return row;
    }
    return nullptr;
}

QTreeWidgetItem* frmDownloads::writeRow(const QString& sPrinter, const QString& sMessage,
                                        const QString& sStatus, bool bold)
{
    QTreeWidgetItem* row = findRow(sPrinter);
    if (!row)
        row = new QTreeWidgetItem(lvwDownloads, {sPrinter});
    row->setText(Message, withoutLineFeeds(sMessage));
    row->setText(Status, sStatus);
    row->setText(DateTime, dateTimeText(PresentTime()));
    for (int column = Printer; column <= DateTime; ++column) {
        QFont font = row->font(column);
        font.setBold(bold);
        row->setFont(column, font);
    }
    row->setSelected(false);
    return row;
}

void frmDownloads::setRowIcon(QTreeWidgetItem* row, const QString& key)
{
    row->setIcon(Printer, m_icons.value(key));
    row->setData(Printer, IconKeyRole, key);
}
