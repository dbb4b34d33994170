#pragma once

#include "core/IProgressLog.h"

#include <cstdio>

// The progress log of a program without a window: one line an entry on a stream.
class HeadlessProgressLog : public IProgressLog
{
public:
    explicit HeadlessProgressLog(FILE* stream = stderr);

    void AddStatusItem(const QString& sPrinter, const QString& sMessage, qint32 eStatus) override;
    void AddErrorItem(const QString& sPrinter, const QString& sMessage, qint32 lCode) override;
    void AddMessageItem(const QString& sPrinter, const QString& sMessage) override;
    void ShowMe() override {}

private:
    FILE* m_stream;
};
