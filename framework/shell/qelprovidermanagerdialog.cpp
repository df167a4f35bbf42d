#include "shell/qelprovidermanagerdialog.h"

#include "shell/provider.h"
#include "shell/providermanager.h"

#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qtablewidget.h>

namespace Velmora::Framework {

namespace {

enum Column { NameColumn, AuthorColumn, VersionColumn, DescriptionColumn, TypeColumn, StateColumn,
              ColumnCount };

// "major.minor", then ".patch" and " (build)" only when they are not 0.
QString versionText(quint32 version)
{
    const quint32 major = version >> 24;
    const quint32 minor = (version >> 16) & 0xff;
    const quint32 patch = (version >> 8) & 0xff;
    const quint32 build = version & 0xff;
    qDebug("mxPMD: <%x> <%x/%x>", version, major, minor);
    QString text = QString::number(major) + QLatin1Char('.') + QString::number(minor);
    if (patch != 0)
        text += QLatin1Char('.') + QString::number(patch);
    if (build != 0)
        text += QLatin1String(" (") + QString::number(build) + QLatin1Char(')');
    return text;
}

} // namespace

QelProviderManagerDialog::QelProviderManagerDialog(ProviderManager *manager, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("QelProviderManagerDialog"));
    setWindowTitle(tr("Provider Information"));

    auto *vboxLayout = new QVBoxLayout(this);
    vboxLayout->setObjectName(QStringLiteral("vboxLayout"));

    m_table = new QTableWidget(0, ColumnCount, this);
    m_table->setObjectName(QStringLiteral("ui_providerInfo"));
    m_table->setHorizontalHeaderLabels({tr("Provider Name"), tr("Author"), tr("Version"),
                                        tr("Description"), tr("Type"), tr("State")});
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(DescriptionColumn, QHeaderView::Stretch);
    vboxLayout->addWidget(m_table);

    auto *hboxLayout = new QHBoxLayout;
    hboxLayout->setObjectName(QStringLiteral("hboxLayout"));
    hboxLayout->addStretch();
    auto *closeButton = new QPushButton(tr("Close"), this);
    closeButton->setObjectName(QStringLiteral("ui_closeButton"));
    closeButton->setDefault(true);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    hboxLayout->addWidget(closeButton);
    vboxLayout->addLayout(hboxLayout);

    fill(manager);
    resize(720, 320);
}

QelProviderManagerDialog::~QelProviderManagerDialog() = default;

void QelProviderManagerDialog::fill(ProviderManager *manager)
{
    if (!manager)
        return;
    const QList<ProviderManager::ProviderInfo> infos =
        manager->getPrimaryProviders() + manager->getSecondaryProviders();
    for (const ProviderManager::ProviderInfo &info : infos) {
        const Provider *provider = info.provider;
        if (!provider)
            continue;
        QString typeText;
        switch (provider->type()) {
        case 0: typeText = tr("Primary"); break;
        case 1: typeText = tr("Secondary"); break;
        default: typeText = QString::number(provider->type()); break;
        }
        QString stateText;
        switch (info.state) {
        case 0: stateText = tr("OK"); break;
        case 1: stateText = tr("Disabled"); break;
        default: stateText = tr("Unknown"); break;
        }
        const int row = m_table->rowCount();
        m_table->insertRow(row);
        const QString texts[ColumnCount] = {provider->name(), provider->author(),
                                            versionText(provider->version()),
                                            provider->description(), typeText, stateText};
        for (int column = 0; column < ColumnCount; ++column)
            m_table->setItem(row, column, new QTableWidgetItem(texts[column]));
    }
    // Sorting is switched on only now: with it on, every setItem could move the row being filled.
    m_table->horizontalHeader()->setSortIndicator(NameColumn, Qt::AscendingOrder);
    m_table->setSortingEnabled(true);
}

} // namespace Velmora::Framework
