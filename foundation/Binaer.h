#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// Bit strings and radix packing (the stored form of passwords).

/// The eight bits of a byte value, highest first ("00000101" for 5). A value outside
/// 0..255 is reported through ReportError (the error dialog) and gives "".
VORELLE_EXPORT QString DecToBin(int Byte);
/// The value of a bit string; characters other than "1" count as 0 bits.
VORELLE_EXPORT qint32 BinToDec(const QString& Bits);
/// DecToBin of the ANSI (Windows-1252) code of each character.
VORELLE_EXPORT QString AsciiToBin(const QString& Text);
/// Each group of eight bits as one ANSI character.
VORELLE_EXPORT QString BinToAscii(const QString& Bits);
/// The bits written in the alphabet of BitWidth (1 to 6 bits a character); with Compress,
/// runs of "0" are packed as "!" and the run length. On bad input the result is "" and
/// BinaerErrorText() tells why.
VORELLE_EXPORT QString BinToRadix(const QString& Bits, int BitWidth, bool Compress = false);
///@{
/// The bits of a text written by BinToRadix without Compress; ErrorText gets the reason of a
/// failure ("" on success) and the result is then "".
VORELLE_EXPORT QString RadixToBin(const QString& Text, int BitWidth, QString& ErrorText);
VORELLE_EXPORT QString RadixToBin(const QString& Text, int BitWidth);
///@}
/// The error text of the last BinToRadix or RadixToBin call; "" when it succeeded.
VORELLE_EXPORT QString BinaerErrorText();
// Clears the error text of the last call, as at the start of the process.
VORELLE_EXPORT void BinaerReset();

}  // namespace vorelle
