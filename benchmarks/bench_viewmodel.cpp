// The tree through its model at scale, beside QStandardItemModel doing the same: N nodes under
// one parent and as a balanced tree four levels deep, built with a tree view attached, walked
// through index()/parent(), re-sorted, emptied and destroyed, and the memory a node takes.
// Both run at N and 2N, in turn within every iteration, so that the ratios hold on a busy
// machine and anything worse than linear shows in the per-node figures.

#include "benchsupport.h"
#include "testtypes.h"

#include "model/viewmodel.h"

#include <QtCore/qcoreapplication.h>
#include <QtGui/qstandarditemmodel.h>
#include <QtWidgets/qtreeview.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <time.h>

using namespace Velmora::Framework;
using namespace Velmora::Benchmarks;

namespace {

enum class Shape { Flat, Balanced };

const char *shapeName(Shape shape)
{
    return shape == Shape::Flat ? "flat" : "balanced";
}

// Nodes 1..n below the top parent 0, in breadth-first order: every parent comes before its
// children, so a tree is built front to back.
struct Layout
{
    std::vector<int> parent;
    std::vector<bool> folder;
    QStringList names;
    // A second order, unrelated to the names: sorting by one starts from a shuffle of the other.
    std::vector<int> keys;
    // Levels below the top parent.
    int depth = 1;
};

quint32 scramble(quint32 value, quint32 factor)
{
    value *= factor;
    return value ^ (value >> 15);
}

// Flat: every node under the top parent. Balanced: the smallest branching that holds n nodes
// in four levels, the last level filled from the left.
const Layout &layoutOf(Shape shape, int count)
{
    static std::map<std::pair<Shape, int>, Layout> cache;
    Layout &layout = cache[{shape, count}];
    if (!layout.parent.empty())
        return layout;
    int branching = count;
    if (shape == Shape::Balanced) {
        branching = 2;
        while (qint64(branching) * branching * branching * branching < count)
            ++branching;
    }
    layout.parent.assign(count + 1, -1);
    layout.folder.assign(count + 1, false);
    layout.keys.assign(count + 1, 0);
    layout.names.reserve(count + 1);
    layout.names.append(QStringLiteral("top"));
    std::vector<int> depth(count + 1, 0);
    for (int node = 1; node <= count; ++node) {
        const int parent = (node - 1) / branching;
        layout.parent[node] = parent;
        layout.folder[parent] = true;
        depth[node] = depth[parent] + 1;
        layout.names.append(QString::number(scramble(node, 2654435761u)));
        layout.keys[node] = int(scramble(node, 2246822519u) & 0x7fffffff);
    }
    layout.depth = depth[count];
    return layout;
}

// Lays out on request, so that a benchmark can have the view do now what it would do at the
// next turn of the event loop.
class TreeView : public QTreeView
{
public:
    using QTreeView::executeDelayedItemsLayout;
};

// Shown offscreen with the top parent expanded: its rows are laid out once the tree is built,
// as a view on screen would.
std::unique_ptr<TreeView> attachView(QAbstractItemModel *model)
{
    auto view = std::make_unique<TreeView>();
    view->resize(320, 480);
    view->setModel(model);
    view->expand(model->index(0, 0));
    view->show();
    QCoreApplication::processEvents();
    view->executeDelayedItemsLayout();
    return view;
}

// Our tree: nodes created through the registrar and inserted through the model. The operations
// of both trees stay out of line, so that a profiler shows each apart.
class OurTree
{
public:
    static constexpr const char *side = "ours";

    explicit OurTree(bool withView)
        : m_model(std::make_unique<ViewModel>(nullptr, m_types.folderItem(QStringLiteral("top"))))
    {
        if (withView)
            m_view = attachView(m_model.get());
    }

    QAbstractItemModel *model() const { return m_model.get(); }

    Q_NEVER_INLINE void build(const Layout &layout, bool withKeys)
    {
        const QString folder = QStringLiteral("folder");
        const QString leaf = QStringLiteral("leaf");
        std::vector<ViewItem *> nodes(layout.parent.size());
        nodes[0] = m_model->rootItem();
        {
            ViewModelWriteLocker locker(m_model.get());
            for (size_t i = 1; i < nodes.size(); ++i) {
                ViewItem *node = m_types.registrar.createItem(layout.folder[i] ? folder : leaf,
                                                              layout.names.at(qsizetype(i)));
                if (withKeys)
                    node->setItemValue(layout.keys[i]);
                nodes[layout.parent[i]]->addChildItem(node);
                nodes[i] = node;
            }
        }
        if (m_view)
            m_view->executeDelayedItemsLayout();
    }

    Q_NEVER_INLINE void sort(bool byKey)
    {
        {
            ViewModelWriteLocker locker(m_model.get());
            sortBelow(m_model->rootItem(), byKey ? &keyLess : nullptr);
        }
        // The model leaves the views alone on a sort; this is how callers tell them.
        m_model->refresh();
    }

    Q_NEVER_INLINE void removeAll()
    {
        ViewModelWriteLocker locker(m_model.get());
        qDeleteAll(m_model->rootItem()->removeAllChildItems());
    }

    Q_NEVER_INLINE void destroy() { m_model->disposeAllItems(); }

private:
    static bool keyLess(ViewItem *const &a, ViewItem *const &b)
    {
        return a->getItemValue() < b->getItemValue();
    }

    static void sortBelow(ViewItem *item, ViewItemCompare compare)
    {
        const int count = item->getChildItemCount();
        if (count == 0)
            return;
        item->sortChildren(compare);
        for (int row = 0; row < count; ++row)
            sortBelow(item->getChildItemAt(row), compare);
    }

    // Declared first: the types outlive every node.
    Velmora::Tests::TestTree m_types;
    std::unique_ptr<ViewModel> m_model;
    std::unique_ptr<TreeView> m_view;
};

// The anchor: the same tree of QStandardItems, one "top" row holding the rest.
class StandardTree
{
public:
    static constexpr const char *side = "anchor";
    static constexpr int keyRole = Qt::UserRole + 1;

    explicit StandardTree(bool withView)
        : m_model(std::make_unique<QStandardItemModel>())
    {
        m_model->appendRow(new QStandardItem(QStringLiteral("top")));
        if (withView)
            m_view = attachView(m_model.get());
    }

    QAbstractItemModel *model() const { return m_model.get(); }

    Q_NEVER_INLINE void build(const Layout &layout, bool withKeys)
    {
        std::vector<QStandardItem *> nodes(layout.parent.size());
        nodes[0] = m_model->item(0);
        for (size_t i = 1; i < nodes.size(); ++i) {
            auto *node = new QStandardItem(layout.names.at(qsizetype(i)));
            if (withKeys)
                node->setData(layout.keys[i], keyRole);
            nodes[layout.parent[i]]->appendRow(node);
            nodes[i] = node;
        }
        if (m_view)
            m_view->executeDelayedItemsLayout();
    }

    Q_NEVER_INLINE void sort(bool byKey)
    {
        m_model->setSortRole(byKey ? keyRole : int(Qt::DisplayRole));
        m_model->sort(0);
    }

    Q_NEVER_INLINE void removeAll()
    {
        QStandardItem *top = m_model->item(0);
        top->removeRows(0, top->rowCount());
    }

    Q_NEVER_INLINE void destroy() { m_model->clear(); }

private:
    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<TreeView> m_view;
};

// index() and parent() for every node, as views and proxies ask them. rowCount() is asked only
// above the last level, a few per cent of the nodes.
qint64 walk(const QAbstractItemModel &model, const QModelIndex &parent, int depth, qint64 &wrong)
{
    const int rows = model.rowCount(parent);
    qint64 visited = rows;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (model.parent(index) != parent)
            ++wrong;
        if (depth > 1)
            visited += walk(model, index, depth - 1, wrong);
    }
    return visited;
}

// The trees that the walk and the sort share: built once per size, kept while the benchmark
// that asked for them runs (a tree at N and one at 2N). Views must go before the application,
// so main drops them at the end.
template <class Tree>
std::map<std::pair<Shape, int>, std::unique_ptr<Tree>> &sharedTrees()
{
    static std::map<std::pair<Shape, int>, std::unique_ptr<Tree>> trees;
    static const bool dropAtEnd = [] {
        atEnd([] { trees.clear(); });
        return true;
    }();
    Q_UNUSED(dropAtEnd);
    return trees;
}

// Drops the shared trees of other shapes and sizes than keep, which may be empty.
template <class Tree>
void keepSharedTrees(Shape shape, const std::vector<int> &keep)
{
    auto &trees = sharedTrees<Tree>();
    for (auto it = trees.begin(); it != trees.end();) {
        const bool kept = it->first.first == shape
            && std::find(keep.cbegin(), keep.cend(), it->first.second) != keep.cend();
        it = kept ? std::next(it) : trees.erase(it);
    }
}

template <class Tree>
Tree &sharedTree(Shape shape, int count, const std::vector<int> &keep)
{
    keepSharedTrees<Tree>(shape, keep);
    std::unique_ptr<Tree> &tree = sharedTrees<Tree>()[{shape, count}];
    if (!tree) {
        tree = std::make_unique<Tree>(true);
        tree->build(layoutOf(shape, count), true);
    }
    return *tree;
}

// The CPU time of this thread, which other processes on a busy machine do not inflate.
double cpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// One operation on one tree of count nodes; answers the CPU seconds of the part measured, or
// a negative number when the operation did not do what it should. Setting up and tearing
// down are not measured.
using Step = double (*)(Shape shape, int count, const std::vector<int> &sizes);

template <class Tree>
double buildStep(Shape shape, int count, const std::vector<int> &)
{
    const Layout &layout = layoutOf(shape, count);
    auto tree = std::make_unique<Tree>(true);
    const double start = cpuSeconds();
    tree->build(layout, false);
    return cpuSeconds() - start;
}

template <class Tree>
double indexParentStep(Shape shape, int count, const std::vector<int> &sizes)
{
    const QAbstractItemModel &model = *sharedTree<Tree>(shape, count, sizes).model();
    const QModelIndex top = model.index(0, 0);
    qint64 wrong = 0;
    const double start = cpuSeconds();
    const qint64 visited = walk(model, top, layoutOf(shape, count).depth, wrong);
    const double elapsed = cpuSeconds() - start;
    return visited == count && wrong == 0 ? elapsed : -1;
}

// Each order is a shuffle of the other, so both sorts start from a random order.
template <class Tree>
double sortStep(Shape shape, int count, const std::vector<int> &sizes)
{
    Tree &tree = sharedTree<Tree>(shape, count, sizes);
    const double start = cpuSeconds();
    tree.sort(true);
    tree.sort(false);
    return cpuSeconds() - start;
}

template <class Tree>
double removeAllStep(Shape shape, int count, const std::vector<int> &)
{
    auto tree = std::make_unique<Tree>(true);
    tree->build(layoutOf(shape, count), false);
    const double start = cpuSeconds();
    tree->removeAll();
    return cpuSeconds() - start;
}

template <class Tree>
double destroyStep(Shape shape, int count, const std::vector<int> &)
{
    auto tree = std::make_unique<Tree>(true);
    tree->build(layoutOf(shape, count), false);
    const double start = cpuSeconds();
    tree->destroy();
    return cpuSeconds() - start;
}

struct Operation
{
    const char *name;
    Step ours;
    Step anchor;
    // Nodes each repetition handles at least: more iterations for small trees keep the
    // figures steady without letting large ones run long.
    qint64 budget;
    int itemsPerNode;
    // Whether the operation works on the shared trees rather than on trees of its own.
    bool shared;
};

// Every iteration runs the operation on our tree and on the anchor's, at N and at 2N, one
// after the other, so that all four see the same machine and the ratios hold while its load
// drifts. Counters, per node (per node and sort for the sort) and as medians over the
// repetitions: "ours" and "anchor" at N, "ours_2n" and "anchor_2n" at 2N, "ratio" (ours over
// the anchor at N), "growth" and "anchor_growth" (the time for the whole tree at 2N over N).
void run(benchmark::State &state, const Operation &operation, Shape shape, int count)
{
    const std::vector<int> sizes = {count, 2 * count};
    // Each benchmark starts from a heap that holds only what it needs, so that what ran
    // before it does not change its figures.
    keepSharedTrees<OurTree>(shape, operation.shared ? sizes : std::vector<int>());
    keepSharedTrees<StandardTree>(shape, operation.shared ? sizes : std::vector<int>());
    releaseFreeMemory();
    // One untimed round first, at both sizes: whichever side ran first would otherwise pay
    // alone for cold code and lazily bound symbols, and the first tree of 2N nodes for faulting
    // in the pages that every later tree reuses (main keeps freed pages in the heap).
    for (const int size : sizes) {
        if (operation.ours(shape, size, sizes) < 0 || operation.anchor(shape, size, sizes) < 0) {
            state.SkipWithError("the walk did not find the tree that was built");
            return;
        }
    }
    // [ours, anchor][N, 2N]
    double spent[2][2] = {};
    for (auto _ : state) {
        double iteration = 0;
        for (int size = 0; size < 2; ++size) {
            for (int side = 0; side < 2; ++side) {
                const Step step = side == 0 ? operation.ours : operation.anchor;
                const double elapsed = step(shape, sizes[size], sizes);
                if (elapsed < 0) {
                    state.SkipWithError("the walk did not find the tree that was built");
                    return;
                }
                spent[side][size] += elapsed;
                iteration += elapsed;
            }
        }
        state.SetIterationTime(iteration);
    }
    const double items = double(state.iterations()) * count * operation.itemsPerNode;
    state.SetItemsProcessed(qint64(items * 6));
    state.counters["ours"] = spent[0][0] / items;
    state.counters["anchor"] = spent[1][0] / items;
    state.counters["ours_2n"] = spent[0][1] / (2 * items);
    state.counters["anchor_2n"] = spent[1][1] / (2 * items);
    state.counters["ratio"] = spent[0][0] / spent[1][0];
    state.counters["growth"] = spent[0][1] / spent[0][0];
    state.counters["anchor_growth"] = spent[1][1] / spent[1][0];
}

// Resident set growth over the build, per node; without a view, which keeps nothing per node
// until it lays rows out.
template <class Tree>
void memory(benchmark::State &state, Shape shape, int count)
{
    const Layout &layout = layoutOf(shape, count);
    double bytesPerNode = 0;
    for (auto _ : state) {
        auto tree = std::make_unique<Tree>(false);
        releaseFreeMemory();
        const qint64 before = residentBytes();
        tree->build(layout, false);
        bytesPerNode = double(residentBytes() - before) / count;
        tree.reset();
    }
    state.counters["bytes_per_node"] = bytesPerNode;
}

const bool registered = [] {
    // First, while the heap holds nothing from other benchmarks.
    for (const Shape shape : {Shape::Flat, Shape::Balanced}) {
        for (const char *side : {OurTree::side, StandardTree::side}) {
            const bool ours = side == OurTree::side;
            const std::string name = std::string("memory/") + shapeName(shape) + '/' + side;
            benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
                if (ours)
                    memory<OurTree>(state, shape, 100000);
                else
                    memory<StandardTree>(state, shape, 100000);
            })->Iterations(1);
        }
    }
    static const Operation operations[] = {
        {"build", &buildStep<OurTree>, &buildStep<StandardTree>, 200000, 1, false},
        {"index_parent", &indexParentStep<OurTree>, &indexParentStep<StandardTree>, 600000, 1,
         true},
        {"sort", &sortStep<OurTree>, &sortStep<StandardTree>, 150000, 2, true},
        {"remove_all", &removeAllStep<OurTree>, &removeAllStep<StandardTree>, 600000, 1, false},
        {"destroy", &destroyStep<OurTree>, &destroyStep<StandardTree>, 600000, 1, false},
    };
    for (const Operation &operation : operations) {
        for (const Shape shape : {Shape::Flat, Shape::Balanced}) {
            for (const int count : {10000, 50000, 100000}) {
                const std::string name = std::string(operation.name) + '/' + shapeName(shape)
                    + '/' + std::to_string(count);
                const Operation *measured = &operation;
                benchmark::internal::Benchmark *benchmark = benchmark::RegisterBenchmark(
                    name.c_str(),
                    [=](benchmark::State &state) { run(state, *measured, shape, count); });
                // Each iteration handles 3N nodes on either side.
                repeated(benchmark->Unit(benchmark::kMillisecond)
                             ->UseManualTime()
                             ->Iterations(std::max<qint64>(1, operation.budget / (6 * count))));
            }
        }
    }
    return true;
}();

} // namespace
