#include "support/PaperPrinter.h"

#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <string>

namespace testsupport {
namespace {

bool IsThere()
{
    HANDLE printer = nullptr;
    if (!::OpenPrinterA(const_cast<char*>(kPaperPrinter), &printer, nullptr)) {
        return false;
    }
    // A printer whose driver is of another architecture opens, too, but has no settings here.
    const LONG size = ::DocumentPropertiesA(nullptr, printer, const_cast<char*>(kPaperPrinter), nullptr, nullptr, 0);
    ::ClosePrinter(printer);
    return size > 0;
}

} // namespace

bool AddPaperPrinter(const char* ppd)
{
    if (!IsThere()) {
        std::string name = kPaperPrinter;
        std::string description = ppd;
        std::replace(description.begin(), description.end(), '/', '\\'); // the spooler knows no other
        std::string driver = "wineps.drv";
        std::string raw = "RAW";
        DRIVER_INFO_3A driverInfo = {};
        driverInfo.cVersion = 3;
        driverInfo.pName = &name[0];
        driverInfo.pDriverPath = &driver[0];
        driverInfo.pConfigFile = &driver[0];
        driverInfo.pDataFile = &description[0];
        driverInfo.pDefaultDataType = &raw[0];
        ::AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&driverInfo),
                              APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY);
        std::string port = "FILE:";
        std::string processor = "WinPrint";
        std::string nothing;
        PRINTER_INFO_2A info = {};
        info.pPrinterName = &name[0];
        info.pDriverName = &name[0];
        info.pPortName = &port[0];
        info.pDatatype = &raw[0];
        info.pPrintProcessor = &processor[0];
        info.pShareName = info.pComment = info.pLocation = info.pSepFile = info.pParameters = &nothing[0];
        if (HANDLE printer = ::AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&info))) {
            ::ClosePrinter(printer);
        }
    }
    return IsThere() && ::SetDefaultPrinterA(kPaperPrinter);
}

} // namespace testsupport
