#include "drivers/LabelSets.h"

LabelSets::LabelSets(QObject* parent)
    : QObject(parent)
{}

LabelSets::~LabelSets() = default;
