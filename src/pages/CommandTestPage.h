#pragma once

#include "pages/NamedControl.h"
#include "pages/PrinterPage.h"

#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

// A tab that holds nothing but the button that opens the handler's command test console.
// It doesn't follow the printer's status.
template <typename Handler> class CommandTestPage : public HandlerPage<Handler>
{
public:
    struct Control
    {
        const char* name;
        qint32 messageId;
        QString defaultCaption;
    };

    // `clickRoutine` names the button's routine in its error trap.
    CommandTestPage(const Control& frame, const Control& button, const char* clickRoutine,
                    QWidget* parent)
        : HandlerPage<Handler>(parent)
        , m_frame(NamedControl<QGroupBox>(frame.name))
        , m_button(NamedControl<QPushButton>(button.name))
        , m_clickRoutine(clickRoutine)
    {
        Caption(*m_frame, frame.messageId, frame.defaultCaption);
        Caption(*m_button, button.messageId, button.defaultCaption);
        // Nothing to open until there is a handler.
        m_button->setEnabled(false);
        auto* inFrame = new QVBoxLayout(m_frame);
        inFrame->addWidget(m_button, 0, Qt::AlignLeft);
        auto* page = new QVBoxLayout(this);
        page->addWidget(m_frame);
        page->addStretch();
        QObject::connect(m_button, &QPushButton::clicked, this, [this] { openConsole(); });
    }

    // The node's name isn't read.
    void Setup(const QString&, ComponentHandler* oHandler) override
    {
        this->bind(oHandler, HandlerPage<Handler>::Follow::Nothing);
        m_button->setEnabled(true);
    }
    void m_Handler_StatusChanged() override {}

private:
    // The console is modal: this returns when it closes, by when the printer, and with it the
    // handler, may have gone.
    void openConsole()
    {
        RunTrapped(this->context(m_clickRoutine), [this] {
            if (Handler* handler = this->m_Handler)
                handler->InvokeCommandTesting();
        });
    }

    QGroupBox* m_frame;
    QPushButton* m_button;
    const char* m_clickRoutine;
};
