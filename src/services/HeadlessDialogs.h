#pragma once

#include "services/IDialogs.h"

#include <cstdio>

// Boxes for programs without a window: each box is one line on standard error,
// "title: text". Nobody is there to answer, so a question takes its safe answer:
// No to a yes/no question and Cancel to Retry/Cancel, so that nothing loops or
// goes ahead unasked.
class HeadlessDialogs : public IDialogs
{
public:
    explicit HeadlessDialogs(FILE* stream = stderr);
    Answer show(const Box& box) override;

private:
    FILE* m_stream;
};
