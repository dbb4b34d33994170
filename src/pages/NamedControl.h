#pragma once

#include <QWidget>

// A control made under `parent` with the name that tests and screenshots find it by.
template <typename Control> Control* NamedControl(const char* name, QWidget* parent = nullptr)
{
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}
