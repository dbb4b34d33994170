#pragma once

#include <QString>
#include <memory>

// The message boxes the system shows. The desktop program puts up modal boxes (other events
// go on while one is open); headless programs and tests install their own answerer.
class IDialogs
{
public:
    enum class Icon { None, Information, Warning, Question, Stop };
    enum class Buttons { Ok, YesNo, RetryCancel };
    enum class Answer { Ok, Yes, No, Retry, Cancel };

    struct Box
    {
        QString text;
        QString title;
        Icon icon = Icon::None;
        Buttons buttons = Buttons::Ok;
        // The second button (No, Cancel) is the default instead of the first.
        bool secondIsDefault = false;
        // The box is brought in front of every other window.
        bool foreground = false;
    };

    virtual ~IDialogs() = default;
    virtual Answer show(const Box& box) = 0;

    // The process-wide answerer; headless until a program installs another.
    static IDialogs& process();
    static void install(std::shared_ptr<IDialogs> dialogs);
};
