#pragma once

#include "tests/program/support/program_files.h"
#include "tests/support/registry_value.h"
#include "tests/support/temp_folder.h"

#include <windows.h>

#include <string>
#include <vector>

namespace vandrel::test {

// Takes the place of the web browser and records what it is asked to open.
class BrowserStandIn {
  public:
    BrowserStandIn();
    BrowserStandIn(const BrowserStandIn&) = delete;
    BrowserStandIn& operator=(const BrowserStandIn&) = delete;
    ~BrowserStandIn();

    // The command lines so far.
    std::vector<std::string> opened() const;
    // The command line that opens this address.
    static std::string opening(const std::wstring& address);

  private:
    static std::wstring command();

    TempFolder folder_{L"browser"};
    RegistryValue http_{HKEY_CLASSES_ROOT, L"http\\shell\\open\\command", L"", command()};
    RegistryValue https_{HKEY_CLASSES_ROOT, L"https\\shell\\open\\command", L"", command()};
};

// Another program, which drags the link to the point.
class DraggedLink {
  public:
    DraggedLink(const std::wstring& link, POINT point);
    DraggedLink(const DraggedLink&) = delete;
    DraggedLink& operator=(const DraggedLink&) = delete;
    ~DraggedLink();

    // What the other program was told about its drag; empty as long as it has been told nothing.
    std::string answer() const;

  private:
    TempFolder folder_{L"drag"};
    HANDLE process_ = nullptr;
};

} // namespace vandrel::test
