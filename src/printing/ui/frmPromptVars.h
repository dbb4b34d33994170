#pragma once

#include "printing/IPromptForm.h"
#include "printing/clsPrompts.h"

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

class PromptDatabase;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

// The window that asks, once per send, for the values of all variables of the send's jobs:
// a row a variable in the order of the prompt list, a masked field for a typed value and a
// list filled from its database for a database key. The rows scroll inside a viewport,
// smoothly if asked to, and a row that gets the focus is brought into view. It is shown
// without holding the rest of the program; the send waits while it is visible.
class frmPromptVars : public QWidget, public IPromptForm
{
    Q_OBJECT

public:
    // The smallest size of the window, in twips.
    static constexpr int MinimumWidthTwips = 3975;
    static constexpr int MinimumHeightTwips = 1500;
    // Interval of the smooth scroll when it starts; a stopped scroll has interval 0.
    static constexpr int ScrollStartInterval = 50;
    // How far one tick of the smooth scroll moves the rows, in twips.
    static constexpr int ScrollStepTwips = 40;

    explicit frmPromptVars(QWidget* parent = nullptr);
    ~frmPromptVars() override;

    void DisplayPromptedVars(PromptList& colPrompts) override;
    void setSmoothScroll(bool smooth) override { m_bSmoothScroll = smooth; }
    bool SmoothScroll() const { return m_bSmoothScroll; }
    void ShowOverOwner() override;
    bool IsVisible() const override { return isVisible(); }
    bool Cancelled() const override { return m_bCancel; }
    bool SaveValues(PromptList& colPrompts) override;

    clsPrompts& Prompts() { return m_prompts; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // One row on screen: its label, its input control, and its number, from 1.
    struct Row
    {
        QLabel* label;
        QWidget* control;
        qsizetype number;
    };
    enum class Approach { FromTop, FromBelow, FromAbove };

    void AddEditPrompt(const clsPrompt& oPrompt, qsizetype& row, int& top);
    void AddDBListPrompt(const clsPrompt& oPrompt, qsizetype& row, int& top);
    // The steps common to every kind of row: its value entry, label and place.
    Row& addRow(QWidget* control, const clsPrompt& oPrompt, qsizetype& row, int& top);
    void fillFromDatabase(QComboBox& combo, const clsPrompt& oPrompt);
    void UpdateScrollBar();
    void layoutRows();
    void bringIntoView(const QWidget& control);
    void scrollTo(int target, Approach approach);
    void timScroll_Timer();
    void storeValue(qsizetype row, const QString& value);
    void cmdOK_Click();
    void cmdCancel_Click();
    int pitch() const { return m_nRowHeight + m_nRowGap; }

    QWidget* picPrompts;
    QWidget* fraPrompts;
    QScrollBar* vsbarPrompts;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QTimer timScroll;

    clsPrompts m_prompts;
    std::vector<Row> m_rows;
    std::vector<std::unique_ptr<PromptDatabase>> m_databases;
    int m_nRowGap;
    int m_nRowHeight;
    int m_nLabelWidth = 0;
    int m_nScrollTarget = 0;
    bool m_bScrollDown = false;
    bool m_bSmoothScroll = false;
    bool m_bCancel = false;
    bool m_bActivated = false;
    QWidget* m_oFirstControl = nullptr;
};
