// An application object and nothing else: the entry point comes with the package. Built only; a program that links has
// found it.
#include <dayvane/Dayvane.h>

namespace {

class AppHost : public CWinApp
{
public:
    BOOL InitInstance() override { return FALSE; }
};

AppHost theApp;

} // namespace
