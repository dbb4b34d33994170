#include "printing/ui/frmPromptVars.h"

#include "platform/qt/AddInWindow.h"
#include "platform/qt/FormPosition.h"
#include "platform/qt/Twips.h"
#include "printing/ui/PromptDatabase.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"
#include "services/VigilError.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>

namespace {
const QString Context = QStringLiteral("frmPromptVars - ");
// Room around the rows and the buttons.
constexpr int Margin = 8;
// A label wider than this is cut short; its whole text is its tool tip.
constexpr int MaxLabelWidth = 260;
// The width a field is given at first, and the rows shown at first before the rest scroll.
constexpr int FieldWidth = 240;
constexpr int RowsShownAtFirst = 8;

// Qt's input mask for a prompt's mask and its settings. The format's mask is already in Qt's
// syntax; the settings map onto it so:
// - ForcedUpper and ForcedLower put ">" or "<" in front, so that every letter typed changes
//   case (upper wins when a format asks for both);
// - ForceAllChars, and AllowSpaces off, turn the mask's optional positions into required
//   ones: Qt lets a blank stand only in an optional position, so both come to "every
//   position must be typed, and not as a space";
// - ForcedEntry needs nothing more: a field whose required positions aren't all typed is
//   not acceptable input to Qt, which keeps its cursor in the gap.
QString inputMaskOf(const clsPrompt& oPrompt)
{
    QString mask = oPrompt.m_sMask;
    if (oPrompt.m_bMaskForceAllChars || !oPrompt.m_bMaskAllowSpaces) {
        static const QHash<QChar, QChar> Required{{u'a', u'A'}, {u'n', u'N'}, {u'x', u'X'},
                                                  {u'0', u'9'}, {u'd', u'D'}, {u'h', u'H'},
                                                  {u'b', u'B'}};
        for (qsizetype i = 0; i < mask.size(); ++i) {
            if (mask.at(i) == u'\\') {
                ++i;
                continue;
            }
            // After ";" comes the blank character, not a position.
            if (mask.at(i) == u';')
                break;
            mask[i] = Required.value(mask.at(i), mask.at(i));
        }
    }
    if (oPrompt.m_bMaskForcedUpper && !mask.startsWith(u'>'))
        mask.prepend(u'>');
    else if (oPrompt.m_bMaskForcedLower && !oPrompt.m_bMaskForcedUpper && !mask.startsWith(u'<'))
        mask.prepend(u'<');
    return mask;
}

QString captionOf(const clsPrompt& oPrompt)
{
    return oPrompt.m_sPrompt.isEmpty() ? oPrompt.m_sVarName.trimmed() : oPrompt.m_sPrompt;
}

int buttonMargin(const QPushButton& button)
{
    return button.height() + 2 * Margin;
}
} // namespace

frmPromptVars::frmPromptVars(QWidget* parent)
    : QWidget(parent, Qt::Window)
    , picPrompts(new QWidget(this))
    , fraPrompts(new QWidget(picPrompts))
    , vsbarPrompts(new QScrollBar(Qt::Vertical, this))
    , cmdOK(new QPushButton(this))
    , cmdCancel(new QPushButton(this))
{
    setObjectName(QStringLiteral("frmPromptVars"));
    picPrompts->setObjectName(QStringLiteral("picPrompts"));
    fraPrompts->setObjectName(QStringLiteral("fraPrompts"));
    vsbarPrompts->setObjectName(QStringLiteral("vsbarPrompts"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    timScroll.setObjectName(QStringLiteral("timScroll"));
    timScroll.setParent(this);
    timScroll.setInterval(0);

    setWindowTitle(GetMessage(433));
    cmdOK->setText(GetMessage(434));
    cmdCancel->setText(GetMessage(435));
    const QSize button = cmdOK->sizeHint().expandedTo(cmdCancel->sizeHint());
    cmdOK->setFixedSize(button);
    cmdCancel->setFixedSize(button);
    cmdOK->setDefault(true);

    m_nRowHeight = qMax(QLineEdit().sizeHint().height(), QComboBox().sizeHint().height());
    m_nRowGap = Margin;
    vsbarPrompts->hide();
    setMinimumSize(toPixels(MinimumWidthTwips), toPixels(MinimumHeightTwips));

    connect(cmdOK, &QPushButton::clicked, this, &frmPromptVars::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPromptVars::cmdCancel_Click);
    connect(vsbarPrompts, &QScrollBar::valueChanged, this,
            [this](int value) { fraPrompts->move(0, -value); });
    connect(&timScroll, &QTimer::timeout, this, &frmPromptVars::timScroll_Timer);
}

// The rows' databases close before the widgets that show them.
frmPromptVars::~frmPromptVars() = default;

void frmPromptVars::DisplayPromptedVars(PromptList& colPrompts)
{
    RunTrapped(Context + QStringLiteral("DisplayPromptedVars"), [&] {
        for (const Row& row : m_rows) {
            delete row.label;
            delete row.control;
        }
        m_rows.clear();
        m_databases.clear();
        m_prompts.clear();
        m_oFirstControl = nullptr;
        fraPrompts->move(0, 0);

        const QList<std::shared_ptr<clsPrompt>> prompts = colPrompts.snapshot();
        m_nLabelWidth = 0;
        for (const auto& prompt : prompts)
            m_nLabelWidth =
                qMax(m_nLabelWidth, fontMetrics().horizontalAdvance(captionOf(*prompt)));
        m_nLabelWidth = qMin(m_nLabelWidth + Margin, MaxLabelWidth);

        qsizetype row = 1;
        int top = m_nRowGap;
        for (const auto& prompt : prompts) {
            if (prompt->IsDatabasePrompt())
                AddDBListPrompt(*prompt, row, top);
            else
                AddEditPrompt(*prompt, row, top);
        }
        // Room for two rows from the start; the frame grows by a pitch a row from the third.
        fraPrompts->resize(fraPrompts->width(),
                           m_nRowGap + int(qMax<size_t>(2, m_rows.size())) * pitch());

        const int vsbWidth = vsbarPrompts->sizeHint().width();
        const int rowsShown = int(qMin<size_t>(qMax<size_t>(2, m_rows.size()), RowsShownAtFirst));
        resize(
            qMax(minimumWidth(), 3 * Margin + m_nLabelWidth + FieldWidth + 2 * vsbWidth + Margin),
            qMax(minimumHeight(),
                 2 * Margin + m_nRowGap + rowsShown * pitch() + buttonMargin(*cmdOK)));
        layoutRows();
        UpdateScrollBar();
    });
}

void frmPromptVars::AddEditPrompt(const clsPrompt& oPrompt, qsizetype& row, int& top)
{
    RunTrapped(QStringLiteral("AddEditPrompt"), [&] {
        auto* field = new QLineEdit(fraPrompts);
        field->setObjectName(QStringLiteral("txtPrompt%1").arg(row));
        const qsizetype number = addRow(field, oPrompt, row, top).number;
        if (!oPrompt.m_sMask.isEmpty())
            field->setInputMask(inputMaskOf(oPrompt));
        if (oPrompt.m_nMaxLen != -1)
            field->setMaxLength(oPrompt.m_nMaxLen);
        // The field notifies its first text as any other change, so a row the operator
        // leaves alone hands on the value it offers.
        connect(field, &QLineEdit::textChanged, this,
                [this, number](const QString& text) { storeValue(number, text); });
        field->setText(oPrompt.m_sData);
    });
}

void frmPromptVars::AddDBListPrompt(const clsPrompt& oPrompt, qsizetype& row, int& top)
{
    RunTrapped(QStringLiteral("AddDBListPrompt"), [&] {
        auto* combo = new QComboBox(fraPrompts);
        combo->setObjectName(QStringLiteral("dbcmbDatabasePrompt%1").arg(row));
        const qsizetype number = addRow(combo, oPrompt, row, top).number;
        connect(combo, &QComboBox::currentTextChanged, this,
                [this, number](const QString& text) { storeValue(number, text); });
        fillFromDatabase(*combo, oPrompt);
    });
}

frmPromptVars::Row& frmPromptVars::addRow(QWidget* control, const clsPrompt& oPrompt,
                                          qsizetype& row, int& top)
{
    m_prompts.Add(QString::number(row))->LBXPrompt = oPrompt.m_sVarName.trimmed();
    auto* label = new QLabel(captionOf(oPrompt), fraPrompts);
    label->setObjectName(QStringLiteral("lblPrompt%1").arg(row));
    label->setToolTip(label->text());
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setBuddy(control);
    label->setGeometry(Margin, top, m_nLabelWidth, m_nRowHeight);
    control->setGeometry(2 * Margin + m_nLabelWidth, top, FieldWidth, m_nRowHeight);
    control->installEventFilter(this);
    label->show();
    control->show();
    // Tabbing follows the rows in their order.
    if (!m_rows.empty())
        setTabOrder(m_rows.back().control, control);
    if (!m_oFirstControl)
        m_oFirstControl = control;
    top += pitch();
    m_rows.push_back({label, control, row});
    ++row;
    return m_rows.back();
}

// The row stays, showing why its list is empty, when its database can't be read.
void frmPromptVars::fillFromDatabase(QComboBox& combo, const clsPrompt& oPrompt)
{
    try {
        auto database = std::make_unique<PromptDatabase>(oPrompt.m_sDataSource);
        const QStringList values = database->keyValues(oPrompt.m_sVarName, oPrompt.m_sKeyField);
        m_databases.push_back(std::move(database));
        combo.addItems(values);
        // The list starts without a choice: the job's value isn't offered.
        combo.setCurrentIndex(-1);
    } catch (const VigilError& error) {
        combo.setPlaceholderText(error.description());
        combo.setToolTip(error.description());
        throw;
    }
}

void frmPromptVars::storeValue(qsizetype row, const QString& value)
{
    if (const auto data = m_prompts.Item(QString::number(row)))
        data->Value = value;
}

bool frmPromptVars::SaveValues(PromptList& colPrompts)
{
    QString sPromptName;
    try {
        for (const auto& data : m_prompts.items()) {
            sPromptName = QStringLiteral("\r\nPrompt Name: ") + data->LBXPrompt;
            const auto prompt = colPrompts.item(data->LBXPrompt);
            if (!prompt)
                throw VigilError(VigilError::InvalidProcedureCall, QStringLiteral("frmPromptVars"),
                                 QStringLiteral("Invalid procedure call or argument"));
            prompt->m_sData = data->Value;
        }
        return true;
    } catch (const VigilError& error) {
        ShowError(error.description() + sPromptName, QStringLiteral("SaveValues"));
        return false;
    }
}

void frmPromptVars::ShowOverOwner()
{
    RunTrapped(Context + QStringLiteral("ShowOverOwner"), [this] {
        // Kept in front of the main window without being owned by it: the send owns the form.
        if (QWidget* owner = AddInWindow()) {
            winId();
            if (windowHandle() && owner->windowHandle())
                windowHandle()->setTransientParent(owner->windowHandle());
        }
        ShowForm(*this, true);
        raise();
        activateWindow();
    });
}

bool frmPromptVars::event(QEvent* event)
{
    // The focus goes to the first row when the form first comes to the front, and only then.
    if (event->type() == QEvent::WindowActivate && !m_bActivated) {
        m_bActivated = true;
        if (m_oFirstControl)
            m_oFirstControl->setFocus(Qt::OtherFocusReason);
    }
    return QWidget::event(event);
}

bool frmPromptVars::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        IgnoringFailure([&] {
            if (auto* field = qobject_cast<QLineEdit*>(watched))
                field->selectAll();
            if (auto* control = qobject_cast<QWidget*>(watched))
                bringIntoView(*control);
        });
    }
    return QWidget::eventFilter(watched, event);
}

void frmPromptVars::bringIntoView(const QWidget& control)
{
    const int frameTop = fraPrompts->y();
    const int rowTop = control.y();
    const int viewport = picPrompts->height();
    if (!m_rows.empty() && &control == m_rows.front().control) {
        scrollTo(0, Approach::FromTop);
    } else if (rowTop + control.height() + frameTop > viewport) {
        const int target = rowTop + m_nRowHeight + m_nRowGap - viewport;
        if (target < vsbarPrompts->maximum()) {
            scrollTo(target, Approach::FromBelow);
        } else {
            timScroll.stop();
            timScroll.setInterval(0);
            vsbarPrompts->setValue(vsbarPrompts->maximum());
        }
    } else if (rowTop + frameTop < 0) {
        const int target = rowTop - m_nRowGap;
        if (target >= 0) {
            scrollTo(target, Approach::FromAbove);
        } else {
            timScroll.stop();
            timScroll.setInterval(0);
            vsbarPrompts->setValue(0);
        }
    }
}

void frmPromptVars::scrollTo(int target, Approach approach)
{
    if (!m_bSmoothScroll) {
        vsbarPrompts->setValue(target);
        return;
    }
    m_nScrollTarget = target;
    m_bScrollDown = approach == Approach::FromBelow;
    if (!timScroll.isActive()) {
        timScroll.start(ScrollStartInterval);
        return;
    }
    // Tabbing on while the rows still move makes them move faster, so that they catch up.
    const double factor = approach == Approach::FromAbove ? 2.0 / 3.0 : 2.0 / 5.0;
    timScroll.setInterval(qMax(1, qRound(timScroll.interval() * factor)));
}

void frmPromptVars::timScroll_Timer()
{
    const int step = qMax(1, toPixels(ScrollStepTwips));
    const int value = vsbarPrompts->value();
    vsbarPrompts->setValue(m_bScrollDown ? qMin(m_nScrollTarget, value + step)
                                         : qMax(m_nScrollTarget, value - step));
    // Also stops at the end of the bar, should the target lie beyond it after a resize.
    if (vsbarPrompts->value() == m_nScrollTarget || vsbarPrompts->value() == value) {
        timScroll.stop();
        timScroll.setInterval(0);
    }
}

void frmPromptVars::UpdateScrollBar()
{
    if (picPrompts->height() > fraPrompts->height()) {
        vsbarPrompts->hide();
        vsbarPrompts->setValue(0);
        return;
    }
    vsbarPrompts->setRange(0, fraPrompts->height() - picPrompts->height());
    vsbarPrompts->setSingleStep(pitch());
    vsbarPrompts->setPageStep(3 * pitch());
    vsbarPrompts->show();
}

void frmPromptVars::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    RunTrapped(Context + QStringLiteral("Form_Resize"), [this] {
        fraPrompts->hide();
        layoutRows();
        UpdateScrollBar();
        fraPrompts->show();
    });
}

void frmPromptVars::layoutRows()
{
    const int inner = width();
    const int bottom = buttonMargin(*cmdOK);
    picPrompts->setGeometry(Margin, Margin, inner - 2 * Margin,
                            qMax(0, height() - bottom - Margin));
    fraPrompts->resize(picPrompts->width(), fraPrompts->height());

    const int buttonTop = height() - bottom + Margin;
    const int pairWidth = cmdOK->width() + Margin + cmdCancel->width();
    const int okLeft = (inner - pairWidth) / 2;
    cmdOK->move(okLeft, buttonTop);
    cmdCancel->move(okLeft + cmdOK->width() + Margin, buttonTop);

    const int vsbWidth = vsbarPrompts->sizeHint().width();
    vsbarPrompts->setGeometry(picPrompts->x() + picPrompts->width() - vsbWidth, picPrompts->y(),
                              vsbWidth, picPrompts->height());
    for (const Row& row : m_rows) {
        const int left = row.control->x();
        row.control->resize(qMax(0, picPrompts->width() - left - 2 * vsbWidth), m_nRowHeight);
    }
}

void frmPromptVars::closeEvent(QCloseEvent* event)
{
    // Closed by its frame it goes as by Cancel: nothing is sent that wasn't confirmed.
    cmdCancel_Click();
    event->accept();
}

void frmPromptVars::cmdOK_Click()
{
    m_bCancel = false;
    hide();
}

void frmPromptVars::cmdCancel_Click()
{
    m_bCancel = true;
    hide();
}
