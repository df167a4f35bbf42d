#include "optionpage.h"

namespace Velmora::Framework {

OptionPage::OptionPage(QWidget *parent) : QWidget(parent) {}

OptionPage::~OptionPage() = default;

} // namespace Velmora::Framework
