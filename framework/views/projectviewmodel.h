#pragma once

#include "velmoraframework_global.h"
#include "model/viewmodel.h"

namespace Velmora::Framework {

// The model of the project view: a ViewModel on the solution tree. Not final, so a
// workbench may refine it.
class VELMORA_FRAMEWORK_EXPORT ProjectViewModel : public ViewModel
{
    Q_OBJECT

public:
    // Attaches root's tree; the model destroys it with itself.
    ProjectViewModel(QObject *parent, ViewItem *root);
    ~ProjectViewModel() override;
};

} // namespace Velmora::Framework
