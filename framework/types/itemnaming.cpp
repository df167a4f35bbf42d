#include "types/itemnaming.h"

#include "core/prompts.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtCore/qregularexpression.h>

namespace Velmora::Framework {

QString ItemNaming::check(ViewItem *item, const QString &name)
{
    static const QRegularExpression legal(QStringLiteral("^[A-Za-z][A-Za-z0-9_]*$"));
    if (name.isEmpty())
        return tr("The name cannot be empty");
    // Deliberately strict: 32 characters are refused although the message allows them.
    if (name.size() >= 32)
        return tr("The name is too long, please limit it to 32 characters");
    if (!legal.match(name).hasMatch()) {
        return tr("The name is illegal. the name can only consist of numbers, letters, and "
                  "underscores, and it must start with a letter");
    }
    ItemType *type = item ? item->getType() : nullptr;
    if (type && type->existName(item, name))
        return tr("Name can not be duplicated within the project");
    if (!type || !type->canChange(item, name, ItemType::NameAspect))
        return tr("The input name id not available");
    return QString();
}

bool ItemNaming::rename(ViewItem *item, QWidget *parent)
{
    if (!item)
        return false;
    bool ok = false;
    const QString name = Prompts::getText(parent, tr("Rename"), tr("Please input new name:"),
                                          item->getItemName(), &ok);
    if (!ok)
        return false;
    const QString refusal = check(item, name);
    if (!refusal.isEmpty()) {
        Prompts::critical(parent, tr("Error"), refusal);
        return false;
    }
    ViewModel *model = item->viewModel();
    return model && model->setData(item->modelIndex(), name, Qt::EditRole);
}

} // namespace Velmora::Framework
