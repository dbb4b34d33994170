#pragma once

#include "drivers/ICommandConsole.h"

#include <QStringList>
#include <tuple>

// A command console that a test drives: it records its set-up and what it is shown, and
// gives the command the test chose. Frame replies are shown as hex bytes.
class ScriptedConsole : public ICommandConsole
{
public:
    void configure(bool typeSelector, bool showAsText, bool aSeries) override
    {
        setup = {typeSelector, showAsText, aSeries};
    }
    void addCommand(const QString&, char commandByte) override { commands.append(commandByte); }
    void showModal() override { visible = true; }
    void close() override { visible = false; }
    bool isVisible() const override { return visible; }
    std::optional<QByteArray> currentCommand() const override { return command; }
    std::optional<FrameCommand> currentFrameCommand() const override { return frameCommand; }
    void SetResponseString(const QString& response) override { responses << response; }
    void SetResponseBytes(const QByteArray& response) override
    {
        responses << QString::fromLatin1(response.toHex(' '));
    }
    void setHooks(Hooks given) override { hooks = std::move(given); }

    std::tuple<bool, bool, bool> setup;
    QByteArray commands;
    bool visible = false;
    std::optional<QByteArray> command;
    std::optional<FrameCommand> frameCommand;
    QStringList responses;
    Hooks hooks;
};
