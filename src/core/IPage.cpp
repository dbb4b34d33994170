#include "core/IPage.h"

std::optional<bool> IPage::DoResize(qint16, qint16)
{
    return std::nullopt;
}
