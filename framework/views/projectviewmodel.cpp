#include "views/projectviewmodel.h"

namespace Velmora::Framework {

ProjectViewModel::ProjectViewModel(QObject *parent, ViewItem *root)
    : ViewModel(parent, root)
{
}

ProjectViewModel::~ProjectViewModel() = default;

} // namespace Velmora::Framework
