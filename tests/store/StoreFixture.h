#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>

#include "foundation/MemoryRegistry.h"
#include "foundation/RegistryBackend.h"
#include "foundation/ServiceSlot.h"

namespace vorelle::test {

// A backend kind the store's routines are run against.
struct BackendKind {
    std::string name;
    std::function<std::unique_ptr<RegistryBackend>(const QString& folder)> make;
};

std::vector<BackendKind> AllBackendKinds();

// Puts a fresh backend of the kind in place for one test and offers raw access to it.
class StoreAccess {
protected:
    void install(const BackendKind& kind) {
        ASSERT_TRUE(folder_.isValid());
        backend_ = kind.make(folder_.path());
        previous_ = RegistryBackend::setInstance(backend_.get());
    }
    void uninstall() { RegistryBackend::setInstance(previous_); }

    // The raw bytes of a value; a null QByteArray when it is absent.
    QByteArray raw(const QString& subKey, const QString& name, quint32 root = HKEY_CURRENT_USER) {
        RegHandle key = 0;
        QByteArray data;
        if (backend_->openKey(root, subKey, &key) == REG_SUCCESS) {
            if (backend_->queryValue(key, name, &data) != REG_SUCCESS) {
                data = QByteArray();
            } else if (data.isNull()) {
                data = QByteArray("");
            }
        }
        backend_->closeKey(key);
        return data;
    }
    void putRaw(const QString& subKey, const QString& name, const QByteArray& data) {
        RegHandle key = 0;
        ASSERT_EQ(backend_->createKey(HKEY_CURRENT_USER, subKey, &key), REG_SUCCESS);
        ASSERT_EQ(backend_->setValue(key, name, data), REG_SUCCESS);
        backend_->closeKey(key);
    }
    bool keyExists(const QString& subKey, quint32 root = HKEY_CURRENT_USER) {
        RegHandle key = 0;
        const bool found = backend_->openKey(root, subKey, &key) == REG_SUCCESS;
        backend_->closeKey(key);
        return found;
    }

    QTemporaryDir folder_;
    std::unique_ptr<RegistryBackend> backend_;

private:
    RegistryBackend* previous_ = nullptr;
};

// A test run once per backend kind.
class StoreTest : public ::testing::TestWithParam<BackendKind>, public StoreAccess {
protected:
    void SetUp() override { install(GetParam()); }
    void TearDown() override { uninstall(); }
};

// A data-driven test run for every case on every backend kind.
template <class Case>
class StoreTableTest : public ::testing::TestWithParam<std::tuple<BackendKind, Case>>,
                       public StoreAccess {
protected:
    void SetUp() override { install(std::get<0>(this->GetParam())); }
    void TearDown() override { uninstall(); }
    const Case& testCase() const { return std::get<1>(this->GetParam()); }
};

template <class Case>
std::string BackendAndCaseName(
    const ::testing::TestParamInfo<std::tuple<BackendKind, Case>>& info) {
    return std::get<0>(info.param).name + "_" + std::get<1>(info.param).name;
}

inline std::string BackendName(const ::testing::TestParamInfo<BackendKind>& info) {
    return info.param.name;
}

}  // namespace vorelle::test
