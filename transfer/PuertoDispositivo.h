#pragma once

// The serial device of this platform behind the transfer's port interface:
// QSerialPort where Qt has it, the Win32 functions on Windows (no serial
// module of Qt is built for Windows here).
#ifdef _WIN32
#include "PuertoSerieWin.h"
using PuertoDispositivo = PuertoSerieWin;
#else
#include "PuertoSerieQt.h"
using PuertoDispositivo = PuertoSerieQt;
#endif
