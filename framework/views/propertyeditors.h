#pragma once

#include <QtCore/qlist.h>
#include <QtCore/qmetatype.h>
#include <QtCore/qrect.h>
#include <QtGui/qcolor.h>
#include <QtGui/qfont.h>
#include <QtWidgets/qcombobox.h>
#include <QtWidgets/qwidget.h>

QT_BEGIN_NAMESPACE
class QFontComboBox;
class QLineEdit;
class QSpinBox;
class QToolButton;
QT_END_NAMESPACE

// The value editors Qt's item editor factory lacks. Each exposes its value as the USER
// property, which is how the delegate reads and writes it.
namespace Velmora::Framework::Internal {

class ColorEditor : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor USER true)

public:
    explicit ColorEditor(QWidget *parent = nullptr);
    QColor color() const;
    void setColor(const QColor &color);

private:
    void choose();

    QColor m_color;
    QLineEdit *m_name;
};

class FontEditor : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QFont value READ value WRITE setValue USER true)

public:
    explicit FontEditor(QWidget *parent = nullptr);
    QFont value() const;
    void setValue(const QFont &font);

private:
    void choose();

    QFont m_font;
    QFontComboBox *m_family;
    QSpinBox *m_size;
};

// A row of labelled spin boxes: the common part of the point, size and rectangle editors.
class IntsEditor : public QWidget
{
    Q_OBJECT

public:
    IntsEditor(const QStringList &labels, int minimum, QWidget *parent);

protected:
    QList<int> values() const;
    void setValues(const QList<int> &values);

private:
    QList<QSpinBox *> m_boxes;
};

class PointEditor : public IntsEditor
{
    Q_OBJECT
    Q_PROPERTY(QPoint value READ value WRITE setValue USER true)

public:
    explicit PointEditor(QWidget *parent = nullptr);
    QPoint value() const;
    void setValue(const QPoint &point);
};

class SizeEditor : public IntsEditor
{
    Q_OBJECT
    Q_PROPERTY(QSize value READ value WRITE setValue USER true)

public:
    explicit SizeEditor(QWidget *parent = nullptr);
    QSize value() const;
    void setValue(const QSize &size);
};

class RectEditor : public IntsEditor
{
    Q_OBJECT
    Q_PROPERTY(QRect value READ value WRITE setValue USER true)

public:
    explicit RectEditor(QWidget *parent = nullptr);
    QRect value() const;
    void setValue(const QRect &rect);
};

// Any enumeration Qt's meta-object system knows (Q_ENUM), chosen by key; the value keeps
// its own type.
class EnumEditor : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ value WRITE setValue USER true)

public:
    explicit EnumEditor(QWidget *parent = nullptr);
    QVariant value() const;
    void setValue(const QVariant &value);

private:
    QMetaType m_type;
};

} // namespace Velmora::Framework::Internal
