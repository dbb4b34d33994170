#pragma once

#include "printing/IIdentifierDialog.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The list of a group's printer identifiers, each with the printer it stands for, to which
// an administrator adds, edits and removes rows. Two rows never share an identifier, with
// case counted. Only OK hands the rows back; the window's own close keeps the table as it
// came but, unlike Cancel, still counts as accepted.
class frmIdentifiers : public QDialog, public IIdentifierDialog
{
    Q_OBJECT

public:
    enum Column { IdentifierColumn, PrinterColumn };

    explicit frmIdentifiers(QWidget* parent = nullptr);

    bool Edit(IdentifierTable& table, const QStringList& groupPrinters,
              const QStringList& allPrinters) override;

    // What Edit does before it shows the dialog, and what it reads after.
    void Setup(const IdentifierTable& table, const QStringList& groupPrinters,
               const QStringList& allPrinters);
    const GroupIdentifiers& ComponentGIDInfo() const { return m_componentGIDInfo; }
    bool UseAllPrinters() const { return m_bUseAllPrinters; }
    bool CancelledByUser() const { return m_sTag == QLatin1String("Cancel"); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void SetupListView();
    void SaveIdentifierInfo();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    // The row holding this identifier, with case counted, other than `except`.
    QTreeWidgetItem* rowWithIdentifier(const QString& identifier,
                                       const QTreeWidgetItem* except = nullptr) const;
    void layoutControls();

    QTreeWidget* lvwIdentifiers;
    QPushButton* cmdAdd;
    QPushButton* cmdEdit;
    QPushButton* cmdRemove;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    GroupIdentifiers m_componentGIDInfo;
    bool m_bUseAllPrinters = false;
    QStringList m_colGroupPrinters;
    QStringList m_colAllPrinters;
    QString m_sTag;
};
