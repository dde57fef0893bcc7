#include "bench/bare-copy.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGraphicsView>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>

#include <functional>
#include <type_traits>
#include <vector>

namespace
{
QLayout* layoutCopy(const QLayout& real);

/// Copies what the item holds into one of the two. Spacers stay behind.
template <class WidgetAdd, class LayoutAdd>
void itemCopy(QLayoutItem& item, WidgetAdd fWidgetAdd, LayoutAdd fLayoutAdd)
{
    if (const auto* pWidget = item.widget())
        fWidgetAdd(bareCopy(*pWidget));
    else if (const auto* pLayout = item.layout())
        fLayoutAdd(layoutCopy(*pLayout));
}

QLayout* gridCopy(const QGridLayout& real)
{
    auto* pBare = new QGridLayout;
    for (int i = 0; i < real.count(); ++i)
    {
        auto& item = *real.itemAt(i);
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        real.getItemPosition(i, &row, &column, &rows, &columns);
        itemCopy(
            item, [&](QWidget* pPart) { pBare->addWidget(pPart, row, column, rows, columns, item.alignment()); },
            [&](QLayout* pPart) { pBare->addLayout(pPart, row, column, rows, columns, item.alignment()); });
    }
    for (int row = 0; row < real.rowCount(); ++row)
        pBare->setRowStretch(row, real.rowStretch(row));
    for (int column = 0; column < real.columnCount(); ++column)
        pBare->setColumnStretch(column, real.columnStretch(column));
    return pBare;
}

QLayout* formCopy(const QFormLayout& real)
{
    auto* pBare = new QFormLayout;
    for (int i = 0; i < real.count(); ++i)
    {
        int row = 0;
        QFormLayout::ItemRole role = QFormLayout::LabelRole;
        real.getItemPosition(i, &row, &role);
        itemCopy(
            *real.itemAt(i), [&](QWidget* pPart) { pBare->setWidget(row, role, pPart); },
            [&](QLayout* pPart) { pBare->setLayout(row, role, pPart); });
    }
    return pBare;
}

QLayout* boxCopy(const QLayout& real)
{
    const auto* pBox = qobject_cast<const QBoxLayout*>(&real);
    auto* pBare = new QBoxLayout(pBox ? pBox->direction() : QBoxLayout::TopToBottom);
    for (int i = 0; i < real.count(); ++i)
        itemCopy(
            *real.itemAt(i), [&](QWidget* pPart) { pBare->addWidget(pPart); },
            [&](QLayout* pPart) { pBare->addLayout(pPart); });
    return pBare;
}

QLayout* layoutCopy(const QLayout& real)
{
    const auto* pGrid = qobject_cast<const QGridLayout*>(&real);
    const auto* pForm = qobject_cast<const QFormLayout*>(&real);
    auto* pBare = pGrid ? gridCopy(*pGrid) : pForm ? formCopy(*pForm) : boxCopy(real);
    pBare->setContentsMargins(real.contentsMargins());
    return pBare;
}

void rowsCopy(const QAbstractItemModel& real, const QModelIndex& realParent, QAbstractItemModel& bare,
              const QModelIndex& bareParent)
{
    const int rows = real.rowCount(realParent);
    const int columns = real.columnCount(realParent);
    // A tree widget has as many columns below as at the top.
    bare.insertColumns(0, columns - bare.columnCount(bareParent), bareParent);
    bare.insertRows(0, rows, bareParent);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            bare.setData(bare.index(row, column, bareParent), real.index(row, column, realParent).data());
    for (int row = 0; row < rows; ++row)
        if (real.hasChildren(real.index(row, 0, realParent)))
            rowsCopy(real, real.index(row, 0, realParent), bare, bare.index(row, 0, bareParent));
}

void expandedCopy(const QTreeView& real, const QModelIndex& realParent, QTreeView& bare, const QModelIndex& bareParent)
{
    for (int row = 0; row < real.model()->rowCount(realParent); ++row)
    {
        const auto realIndex = real.model()->index(row, 0, realParent);
        const auto bareIndex = bare.model()->index(row, 0, bareParent);
        bare.setExpanded(bareIndex, real.isExpanded(realIndex));
        expandedCopy(real, realIndex, bare, bareIndex);
    }
}

void itemsCopy(const QAbstractItemView& real, QAbstractItemView& bare)
{
    if (!real.model())
        return;
    if (!bare.model())
        bare.setModel(new QStandardItemModel(&bare));
    rowsCopy(*real.model(), {}, *bare.model(), {});
    for (int column = 0; column < real.model()->columnCount(); ++column)
        bare.model()->setHeaderData(column, Qt::Horizontal, real.model()->headerData(column, Qt::Horizontal));
    if (const auto* pTree = qobject_cast<const QTreeView*>(&real))
        expandedCopy(*pTree, {}, static_cast<QTreeView&>(bare), {});
}

template <class Item>
void samplesCopy(const QwtPlotItem& real, QwtPlot& bare)
{
    using Samples = std::decay_t<decltype(*static_cast<const Item&>(real).data())>;
    const Samples& samples = *static_cast<const Item&>(real).data();
    QVector<std::decay_t<decltype(samples.sample(0))>> copies;
    for (size_t i = 0; i < samples.size(); ++i)
        copies.append(samples.sample(i));
    auto* pBare = new Item;
    pBare->setSamples(copies);
    pBare->setYAxis(real.yAxis());
    pBare->attach(&bare);
}

void plotCopy(const QwtPlot& real, QwtPlot& bare)
{
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
    {
        bare.enableAxis(axis, real.axisEnabled(axis));
        bare.setAxisTitle(axis, real.axisTitle(axis));
        bare.setAxisScaleDiv(axis, real.axisScaleDiv(axis));
    }
    for (const auto* pItem : real.itemList())
    {
        if (pItem->rtti() == QwtPlotItem::Rtti_PlotCurve)
            samplesCopy<QwtPlotCurve>(*pItem, bare);
        else if (pItem->rtti() == QwtPlotItem::Rtti_PlotHistogram)
            samplesCopy<QwtPlotHistogram>(*pItem, bare);
        else if (pItem->rtti() == QwtPlotItem::Rtti_PlotGrid)
            (new QwtPlotGrid)->attach(&bare);
    }
}

using Make = std::function<QWidget*(const QWidget&)>;

/// Makes a bare `Widget` for what derives from it, and null for everything else.
template <class Widget, class Show>
Make kind(Show fShow)
{
    return [fShow](const QWidget& real) -> QWidget*
    {
        const auto* pReal = qobject_cast<const Widget*>(&real);
        if (!pReal)
            return nullptr;
        auto* pBare = new Widget;
        fShow(*pReal, *pBare);
        return pBare;
    };
}

template <class View>
Make views()
{
    return kind<View>([](const View& real, View& bare) { itemsCopy(real, bare); });
}

template <class Button>
Make buttons()
{
    return kind<Button>(
        [](const Button& real, Button& bare)
        {
            bare.setText(real.text());
            bare.setIcon(real.icon());
            bare.setCheckable(real.isCheckable());
            bare.setChecked(real.isChecked());
        });
}

template <class Edit>
Make textViews()
{
    return kind<Edit>([](const Edit& real, Edit& bare) { bare.setPlainText(real.toPlainText()); });
}

template <class Range>
void rangeCopy(const Range& real, Range& bare)
{
    bare.setRange(real.minimum(), real.maximum());
    bare.setValue(real.value());
}

/// What holds other widgets in its layout.
template <class Box>
void layoutGive(const Box& real, Box& bare)
{
    if (real.layout())
        bare.setLayout(layoutCopy(*real.layout()));
}

/// What shows something. A class stands before its bases.
std::vector<Make> shows()
{
    return {
        views<QTableWidget>(),
        views<QTableView>(),
        views<QTreeWidget>(),
        views<QTreeView>(),
        views<QListWidget>(),
        views<QListView>(),
        textViews<QPlainTextEdit>(),
        textViews<QTextEdit>(),
        buttons<QCheckBox>(),
        buttons<QRadioButton>(),
        buttons<QPushButton>(),
        buttons<QToolButton>(),
        kind<QGraphicsView>([](const QGraphicsView&, QGraphicsView&) {}),
        kind<QwtPlot>([](const QwtPlot& real, QwtPlot& bare) { plotCopy(real, bare); }),
        kind<QLineEdit>([](const QLineEdit& real, QLineEdit& bare) { bare.setText(real.text()); }),
        kind<QProgressBar>([](const QProgressBar& real, QProgressBar& bare) { rangeCopy(real, bare); }),
        kind<QSpinBox>([](const QSpinBox& real, QSpinBox& bare) { rangeCopy(real, bare); }),
        kind<QDoubleSpinBox>(
            [](const QDoubleSpinBox& real, QDoubleSpinBox& bare)
            {
                bare.setDecimals(real.decimals());
                rangeCopy(real, bare);
            }),
        kind<QSlider>(
            [](const QSlider& real, QSlider& bare)
            {
                bare.setOrientation(real.orientation());
                bare.setTickPosition(real.tickPosition());
                rangeCopy(real, bare);
            }),
        kind<QComboBox>(
            [](const QComboBox& real, QComboBox& bare)
            {
                for (int i = 0; i < real.count(); ++i)
                    bare.addItem(real.itemText(i));
                bare.setCurrentIndex(real.currentIndex());
            }),
        kind<QLabel>(
            [](const QLabel& real, QLabel& bare)
            {
                const auto pixmap = real.pixmap(Qt::ReturnByValue);
                pixmap.isNull() ? bare.setText(real.text()) : bare.setPixmap(pixmap);
            }),
    };
}

/// What holds other widgets; the last one takes everything.
std::vector<Make> holders()
{
    return {
        kind<QStackedWidget>(
            [](const QStackedWidget& real, QStackedWidget& bare)
            {
                for (int i = 0; i < real.count(); ++i)
                    bare.addWidget(bareCopy(*real.widget(i)));
                bare.setCurrentIndex(real.currentIndex());
            }),
        kind<QTabWidget>(
            [](const QTabWidget& real, QTabWidget& bare)
            {
                for (int i = 0; i < real.count(); ++i)
                    bare.addTab(bareCopy(*real.widget(i)), real.tabText(i));
                bare.setCurrentIndex(real.currentIndex());
            }),
        kind<QScrollArea>(
            [](const QScrollArea& real, QScrollArea& bare)
            {
                bare.setWidgetResizable(real.widgetResizable());
                if (real.widget())
                    bare.setWidget(bareCopy(*real.widget()));
            }),
        kind<QGroupBox>(
            [](const QGroupBox& real, QGroupBox& bare)
            {
                bare.setTitle(real.title());
                bare.setCheckable(real.isCheckable());
                layoutGive(real, bare);
            }),
        kind<QFrame>(
            [](const QFrame& real, QFrame& bare)
            {
                bare.setFrameStyle(real.frameStyle());
                layoutGive(real, bare);
            }),
        kind<QWidget>([](const QWidget& real, QWidget& bare) { layoutGive(real, bare); }),
    };
}
} // namespace

QWidget* bareCopy(const QWidget& real)
{
    static const auto kinds = []
    {
        auto all = shows();
        for (const auto& fMake : holders())
            all.push_back(fMake);
        return all;
    }();
    QWidget* pBare = nullptr;
    for (auto fMake = kinds.begin(); !pBare; ++fMake)
        pBare = (*fMake)(real);
    pBare->setSizePolicy(real.sizePolicy());
    pBare->setMinimumSize(real.minimumSize());
    pBare->setMaximumSize(real.maximumSize());
    pBare->setEnabled(real.isEnabledTo(real.parentWidget()));
    if (real.isHidden() && real.testAttribute(Qt::WA_WState_ExplicitShowHide))
        pBare->hide();
    return pBare;
}
