// What every measurement of windows starts from.
#include <QApplication>
#include <QStyleFactory>
#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
