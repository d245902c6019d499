#include "gateway/state/warning.h"

#include "gateway/state/narrow_text.h"
#include "gateway/state/settings.h"
#include "platform/matlab/matlab.h"

void Warn(LPCWSTR text)
{
    if (!GlobalSettings.showWarnings)
        return;
    WideString message(OLESTR("CAPE-OPEN: "));
    if (text)
        message += text;
    mexWarnMsgTxt(NarrowText(message.c_str()).get());
}

void WarnPlain(const char *text)
{
    if (GlobalSettings.showWarnings)
        mexWarnMsgTxt(text);
}
