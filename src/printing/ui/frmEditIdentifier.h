#pragma once

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// Asks for one printer identifier and the printer it stands for, from the group's printers
// or, when asked, from every printer of the tree. The first entry of the list stands for no
// printer.
class frmEditIdentifier : public QDialog
{
    Q_OBJECT

public:
    explicit frmEditIdentifier(QWidget* parent = nullptr);

    // Shows the dialog over frmParent, starting from the arguments; on OK they take what the
    // user chose and the answer is true.
    static bool CreateAndShow_AddIdentifier(const QStringList& colAllPrinters,
                                            const QStringList& colGroupPrinters, QWidget* frmParent,
                                            bool& bShowAllPrinters, QString& sPrinter,
                                            QString& sIdentifier);

    void Setup(const QStringList& colAllPrinters, const QStringList& colGroupPrinters);
    QString Identifier() const { return m_sIdentifier; }
    void setIdentifier(const QString& identifier);
    QString Printer() const { return m_sPrinter; }
    void setPrinter(const QString& printer) { m_sPrinter = printer; }
    bool ShowAllPrinters() const { return m_bShowAllPrinters; }
    // Fills the printer list from the chosen one of the two lists.
    void setShowAllPrinters(bool showAll);
    bool Cancelled() const { return m_bCancelled; }

private:
    void SetAvailablePrinters();
    void chkAllPrinters_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    QLabel* lblPrinterIdentifier;
    QLineEdit* txtPrinterIdentifier;
    QLabel* lblPrinter;
    QComboBox* cboPrinter;
    QCheckBox* chkAllPrinters;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    QStringList m_colAllPrinters;
    QStringList m_colGroupPrinters;
    QString m_sIdentifier;
    QString m_sPrinter;
    bool m_bShowAllPrinters = false;
    bool m_bCancelled = true;
};
