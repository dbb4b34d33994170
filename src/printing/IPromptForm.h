#pragma once

#include "printing/clsPrompt.h"

#include <QHash>
#include <QString>
#include <functional>
#include <memory>

// The form that asks the operator, once per send, for the values of every variable of the
// send's jobs. The send shows it, waits while it is visible, and reads what it collected.
class IPromptForm
{
public:
    virtual ~IPromptForm() = default;

    // One row per prompt, in the list's order, offering each typed prompt's present value.
    virtual void DisplayPromptedVars(PromptList& colPrompts) = 0;
    virtual void setSmoothScroll(bool smooth) = 0;
    // Shows the form over the control; again while it is open, brings it to the front.
    virtual void ShowOverOwner() = 0;
    virtual bool IsVisible() const = 0;
    // The operator left by cancel.
    virtual bool Cancelled() const = 0;
    // Each row's value into the prompt of its name; false, after a box, when that fails.
    virtual bool SaveValues(PromptList& colPrompts) = 0;

    using Factory = std::function<std::unique_ptr<IPromptForm>()>;
    // The form of this process: the window's, or without one the answered form below with no
    // answers.
    static std::unique_ptr<IPromptForm> create();
    static void install(Factory factory);
};

// The answers of a send without a window, by variable name, and what was wrong with them.
struct PromptAnswers
{
    explicit PromptAnswers(const QHash<QString, QString>& answers = {});

    // Trimmed, lower-case names: a name matches blind to case, as the prompts' keys do.
    QHash<QString, QString> byName;
    // Empty while every answer could be used.
    QString problem;
};

// A form without a window: shown, it is answered at once, each prompt taking the answer
// given for its name or else what the window would offer (a typed prompt its present value,
// a database prompt nothing). An answer that no prompt asks for, or that is longer than its
// prompt allows, counts as a cancel, so that nothing is sent with values nobody meant.
class AnsweredPromptForm : public IPromptForm
{
public:
    explicit AnsweredPromptForm(std::shared_ptr<PromptAnswers> answers = {});

    void DisplayPromptedVars(PromptList& colPrompts) override;
    void setSmoothScroll(bool) override {}
    void ShowOverOwner() override {}
    bool IsVisible() const override { return false; }
    bool Cancelled() const override { return !m_answers->problem.isEmpty(); }
    bool SaveValues(PromptList& colPrompts) override;

private:
    std::shared_ptr<PromptAnswers> m_answers;
    QHash<QString, QString> m_values;
};
