#include "views/propertyeditors.h"

#include "core/prompts.h"
#include "views/propertyvalues.h"

#include <QtCore/qmetaobject.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qcolordialog.h>
#include <QtWidgets/qfontcombobox.h>
#include <QtWidgets/qfontdialog.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qspinbox.h>
#include <QtWidgets/qtoolbutton.h>

#include <limits>

namespace Velmora::Framework::Internal {

namespace {
QHBoxLayout *rowLayout(QWidget *parent)
{
    // Editors sit over the painted row; without a background the value shows through.
    parent->setAutoFillBackground(true);
    auto *layout = new QHBoxLayout(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    return layout;
}

QToolButton *moreButton(QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setText(QStringLiteral("..."));
    button->setAutoRaise(true);
    return button;
}
} // namespace

// The row keeps showing its swatch beside the editor; the editor adds the name and a chooser.
ColorEditor::ColorEditor(QWidget *parent)
    : QWidget(parent)
    , m_name(new QLineEdit(this))
{
    QToolButton *more = moreButton(this);
    more->setToolTip(tr("Choose a colour"));
    m_name->setFrame(false);
    QHBoxLayout *layout = rowLayout(this);
    layout->addWidget(m_name, 1);
    layout->addWidget(more);
    setFocusProxy(m_name);
    connect(more, &QToolButton::clicked, this, &ColorEditor::choose);
    connect(m_name, &QLineEdit::editingFinished, this, [this] {
        const QColor typed = QColor::fromString(m_name->text());
        setColor(typed.isValid() ? typed : m_color);
    });
}

QColor ColorEditor::color() const
{
    return m_color;
}

void ColorEditor::setColor(const QColor &color)
{
    m_color = color;
    m_name->setText(PropertyValues::displayText(color));
}

void ColorEditor::choose()
{
    QColorDialog dialog(m_color, this);
    dialog.setOption(QColorDialog::ShowAlphaChannel);
    if (Prompts::exec(&dialog) == QDialog::Accepted)
        setColor(dialog.selectedColor());
}

FontEditor::FontEditor(QWidget *parent)
    : QWidget(parent)
    , m_family(new QFontComboBox(this))
    , m_size(new QSpinBox(this))
{
    m_size->setRange(1, 512);
    m_size->setSuffix(tr(" pt"));
    QToolButton *more = moreButton(this);
    more->setToolTip(tr("Choose a font"));
    QHBoxLayout *layout = rowLayout(this);
    layout->addWidget(m_family, 1);
    layout->addWidget(m_size);
    layout->addWidget(more);
    setFocusProxy(m_family);
    connect(m_family, &QFontComboBox::currentFontChanged, this,
            [this](const QFont &font) { m_font.setFamilies(font.families()); });
    connect(m_size, &QSpinBox::valueChanged, this, [this](int size) { m_font.setPointSize(size); });
    connect(more, &QToolButton::clicked, this, &FontEditor::choose);
}

QFont FontEditor::value() const
{
    return m_font;
}

void FontEditor::setValue(const QFont &font)
{
    const QFont kept = font;
    m_family->setCurrentFont(kept);
    // Show the start of a long family name, not its end.
    m_family->lineEdit()->setCursorPosition(0);
    m_size->setValue(kept.pointSize() > 0 ? kept.pointSize() : 9);
    // The combo box normalises the font it is given; keep what the property holds.
    m_font = kept;
}

void FontEditor::choose()
{
    QFontDialog dialog(m_font, this);
    if (Prompts::exec(&dialog) == QDialog::Accepted)
        setValue(dialog.selectedFont());
}

IntsEditor::IntsEditor(const QStringList &labels, int minimum, QWidget *parent)
    : QWidget(parent)
{
    QHBoxLayout *layout = rowLayout(this);
    for (const QString &label : labels) {
        auto *box = new QSpinBox(this);
        box->setRange(minimum, std::numeric_limits<int>::max());
        box->setPrefix(label + QStringLiteral(": "));
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        box->setFrame(false);
        layout->addWidget(box, 1);
        m_boxes.append(box);
    }
    setFocusProxy(m_boxes.first());
}

QList<int> IntsEditor::values() const
{
    QList<int> values;
    for (const QSpinBox *box : m_boxes)
        values.append(box->value());
    return values;
}

void IntsEditor::setValues(const QList<int> &values)
{
    for (int at = 0; at < m_boxes.size() && at < values.size(); ++at)
        m_boxes.at(at)->setValue(values.at(at));
}

PointEditor::PointEditor(QWidget *parent)
    : IntsEditor({tr("X"), tr("Y")}, std::numeric_limits<int>::min(), parent)
{
}

QPoint PointEditor::value() const
{
    const QList<int> v = values();
    return QPoint(v.at(0), v.at(1));
}

void PointEditor::setValue(const QPoint &point)
{
    setValues({point.x(), point.y()});
}

SizeEditor::SizeEditor(QWidget *parent)
    : IntsEditor({tr("W"), tr("H")}, -1, parent)
{
}

QSize SizeEditor::value() const
{
    const QList<int> v = values();
    return QSize(v.at(0), v.at(1));
}

void SizeEditor::setValue(const QSize &size)
{
    setValues({size.width(), size.height()});
}

RectEditor::RectEditor(QWidget *parent)
    : IntsEditor({tr("X"), tr("Y"), tr("W"), tr("H")}, std::numeric_limits<int>::min(), parent)
{
}

QRect RectEditor::value() const
{
    const QList<int> v = values();
    return QRect(v.at(0), v.at(1), v.at(2), v.at(3));
}

void RectEditor::setValue(const QRect &rect)
{
    setValues({rect.x(), rect.y(), rect.width(), rect.height()});
}

EnumEditor::EnumEditor(QWidget *parent)
    : QComboBox(parent)
{
}

QVariant EnumEditor::value() const
{
    int raw = currentData().toInt();
    return QVariant(m_type, &raw);
}

void EnumEditor::setValue(const QVariant &value)
{
    m_type = value.metaType();
    clear();
    const QMetaEnum meta = PropertyValues::metaEnum(m_type);
    for (int at = 0; at < meta.keyCount(); ++at)
        addItem(QString::fromLatin1(meta.key(at)), meta.value(at));
    setCurrentIndex(findData(value.toInt()));
}

} // namespace Velmora::Framework::Internal
