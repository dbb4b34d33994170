#pragma once

#include "CommandLine.h"

#include <QList>

class LabelFormat;
class LabelSetFile;
struct PromptedValue;
struct DatabaseKey;

// vigilctl format show FILE: what a label format or a label set asks for and where it
// prints, as the print application reads it, so that a fault shows before a job is made.
class FormatCommand
{
public:
    explicit FormatCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    void showFormat(const LabelFormat& format);
    void showSet(const LabelSetFile& set);
    void showValues(const QList<PromptedValue>& prompts, const QList<DatabaseKey>& keys);

    const Console& m_console;
};
