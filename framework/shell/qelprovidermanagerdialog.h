#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qdialog.h>

namespace Velmora::Framework {

class ProviderManager;

// Lists the primary and secondary providers of a manager, one row each, sorted by name.
// The rows are taken once, when the dialog is built.
class VELMORA_FRAMEWORK_EXPORT QelProviderManagerDialog : public QDialog
{
    Q_OBJECT

public:
    // manager is borrowed and read only here; null gives an empty table.
    explicit QelProviderManagerDialog(ProviderManager *manager, QWidget *parent = nullptr);
    ~QelProviderManagerDialog() override;
};

} // namespace Velmora::Framework
