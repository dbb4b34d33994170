#pragma once

#include "core/IForms.h"

#include <cstdio>

// The forms of a program without a window: each says on a stream where to look instead.
class HeadlessForms : public IForms
{
public:
    explicit HeadlessForms(FILE* stream = stderr);

    void ShowOptions() override;
    void ShowHelp(const QString& sPath) override;

private:
    FILE* m_stream;
};
