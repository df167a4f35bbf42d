#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qstring.h>
#include <QtGui/qicon.h>

namespace Velmora::Framework {

// A top-level entry of the options tree. Pages registered under top items with the same
// title share one entry; the first registration decides its icon.
class VELMORA_FRAMEWORK_EXPORT OptionTopItem
{
public:
    OptionTopItem() = default;
    explicit OptionTopItem(const QString &title, const QIcon &icon = QIcon())
        : m_title(title), m_icon(icon)
    {
    }

    QString title() const { return m_title; }
    QIcon icon() const { return m_icon; }
    bool isValid() const { return !m_title.isEmpty(); }

private:
    QString m_title;
    QIcon m_icon;
};

} // namespace Velmora::Framework
