// What the benchmarks of widgets share: a typed key and a main that runs them in a Qt
// application on the offscreen platform.
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <optional>

#include "foundation/MemoryRegistry.h"
#include "foundation/RegistryBackend.h"

namespace vorelle::bench {

// Presses and releases the key of a digit, a small letter or a blank on the target.
inline void press(QWidget* target, char c) {
    int key = Qt::Key_Space;
    if (c >= '0' && c <= '9') {
        key = Qt::Key_0 + (c - '0');
    } else if (c >= 'a' && c <= 'z') {
        key = Qt::Key_A + (c - 'a');
    }
    const QString text(QChar::fromLatin1(c));
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &up);
}

// What the store of a benchmark is.
enum class Store { Default, InMemory };

// Runs the registered benchmarks in an application, on the offscreen platform unless
// another is asked for; Store::InMemory puts a store in memory in place (the language is
// read from it).
inline int runBenchmarks(int argc, char** argv, Store store = Store::Default) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    std::optional<MemoryRegistry> memory;
    if (store == Store::InMemory) {
        memory.emplace();
        RegistryBackend::setInstance(&*memory);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (memory) {
        RegistryBackend::setInstance(nullptr);
    }
    return 0;
}

}  // namespace vorelle::bench
