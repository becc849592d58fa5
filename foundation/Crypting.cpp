#include "foundation/Crypting.h"

#include <array>

#include "foundation/Binaer.h"
#include "foundation/RegStore.h"

namespace vorelle {

namespace {

// The library's key, 2048 bits written in the 64 symbols of BinToRadix width 6.
const QString kStoredKey = QStringLiteral(
    "gp7HyCEwbZM4RWtxO-wQZz_WxLcvS5_pMjDTPALLLs0Fs2VAogJ86uq_KOIvYzmFIK-PAnY87WNZenRlkT-SSUM3Y3"
    "k5YYtsice92pvwWakOt_9EJd0eOOyWWFaRCg_9mDfW0bxnW_-r43YArhn65jJwvxqqBoG7mJ03i45wRgTztoyQbdK"
    "WQ86jaRfL7776xmgDIZ61aubKDe8DPFm_6-_QsrmyFha7X_gHkyAp5V_-tWjU4Ug3WZRlPkFqeiq6WQEr_BsZg1Vh"
    "fS5iUa3svjPpGjWkXp5hTfF7kUi-RAhnTxDoc0ogLmILrQMRmbHxNuNFgX4lb9wngDZ01CNsb2");

}  // namespace

QString RC4(const QString& Text, const QString& Key) {
    QByteArray key = ToAnsi(Key);
    if (key.isEmpty()) {
        key = QByteArray(1, '\0');
    }
    std::array<quint8, 256> state{};
    for (int i = 0; i < 256; ++i) {
        state[i] = static_cast<quint8>(i);
    }
    int j = 0;
    for (int i = 0; i < 256; ++i) {
        const auto k = static_cast<quint8>(key.at(i % key.size()));
        j = (j + state[i] + k) % 256;
        std::swap(state[i], state[j]);
    }
    QByteArray bytes = ToAnsi(Text);
    int i = 0;
    j = 0;
    for (char& byte : bytes) {
        i = (i + 1) % 256;
        j = (j + state[i]) % 256;
        std::swap(state[i], state[j]);
        byte = static_cast<char>(static_cast<quint8>(byte) ^ state[(state[i] + state[j]) % 256]);
    }
    return FromAnsi(bytes);
}

QString BuiltInKey() {
    return BinToAscii(RadixToBin(kStoredKey, 6));
}

}  // namespace vorelle
