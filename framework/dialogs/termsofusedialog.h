#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qdialog.h>

namespace Velmora::Framework {

// Shows the terms of use kept in the library's resources, with one Close button.
class VELMORA_FRAMEWORK_EXPORT TermsOfUseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TermsOfUseDialog(QWidget *parent = nullptr);
    ~TermsOfUseDialog() override;

    static QString termsResource();
};

} // namespace Velmora::Framework
