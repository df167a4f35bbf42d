// The tree through its model at scale: one parent with N children, shown in a view, built,
// re-sorted and emptied, per node, so that anything quadratic shows as N doubles.

#include "testtypes.h"

#include "model/viewmodel.h"

#include <QtWidgets/qtreeview.h>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::TestTree;

namespace {

ViewItem *buildWide(const TestTree &tree, ViewItem *root, int count)
{
    ViewModelWriteLocker locker(root->viewModel());
    for (int i = 0; i < count; ++i)
        root->addChildItem(tree.leafItem(QString::number((i * 7919) % count)));
    return root;
}

void BM_WideBuild(benchmark::State &state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        TestTree tree;
        ViewModel model(nullptr, tree.folderItem(QStringLiteral("root")));
        QTreeView view;
        view.setModel(&model);
        view.expandAll();
        state.ResumeTiming();
        buildWide(tree, model.rootItem(), count);
        state.PauseTiming();
        model.disposeAllItems();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void BM_WideSortAndEmpty(benchmark::State &state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        TestTree tree;
        ViewModel model(nullptr, tree.folderItem(QStringLiteral("root")));
        QTreeView view;
        view.setModel(&model);
        view.expandAll();
        ViewItem *root = buildWide(tree, model.rootItem(), count);
        state.ResumeTiming();
        root->sortChildren(nullptr);
        model.refresh();
        // Every row's index after the reorder, as a view walking the tree asks for them.
        for (int row = 0; row < count; ++row)
            benchmark::DoNotOptimize(root->getChildItemAt(row)->modelIndex());
        qDeleteAll(root->removeAllChildItems());
    }
    state.SetItemsProcessed(state.iterations() * count);
}

} // namespace

BENCHMARK(BM_WideBuild)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WideSortAndEmpty)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);
