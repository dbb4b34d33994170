#include "drivers/LabelSet.h"

LabelSet::LabelSet(QObject* parent)
    : QObject(parent)
{}

LabelSet::~LabelSet() = default;
