#pragma once

#include "core/IProgressLog.h"

#include <QHash>
#include <QIcon>
#include <QWidget>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The print progress log on screen: a row a printer, known by its exact name, with what
// happened last to what was sent there. Every entry brings the window forward; closing it
// only hides it, and the rows stay until the user clears them.
class frmDownloads : public QWidget, public IProgressLog
{
    Q_OBJECT

public:
    enum Column { Printer, Message, Status, DateTime };
    // The key of a row's icon (Neutral, Success or Error), also when its file is missing.
    static constexpr int IconKeyRole = Qt::UserRole;

    explicit frmDownloads(QWidget* parent = nullptr);

    void AddStatusItem(const QString& sPrinter, const QString& sMessage, qint32 eStatus) override;
    void AddErrorItem(const QString& sPrinter, const QString& sMessage, qint32 lCode) override;
    void AddMessageItem(const QString& sPrinter, const QString& sMessage) override;
    void ShowMe() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void cmdOk_Click();
    void cmdClear_Click();
    QTreeWidgetItem* findRow(const QString& sPrinter) const;
    // The printer's row, added at the end if it has none, with the message, status and time
    // of this entry.
    QTreeWidgetItem* writeRow(const QString& sPrinter, const QString& sMessage,
                              const QString& sStatus, bool bold);
    void setRowIcon(QTreeWidgetItem* row, const QString& key);

    QTreeWidget* lvwDownloads;
    QPushButton* cmdOK;
    QPushButton* cmdClear;
    QHash<QString, QIcon> m_icons;
};
