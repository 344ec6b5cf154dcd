#include "platform/win32/services/WindowsWaitableHandles.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/calls/SystemHandle.h"

namespace korvanta {

std::uint32_t WindowsWaitableHandles::PollAny(const std::vector<ChangeHandle>& handles) {
    std::vector<HANDLE> systemHandles(handles.size());
    std::transform(handles.begin(), handles.end(), systemHandles.begin(), ToSystemHandle);
    return ::WaitForMultipleObjects(static_cast<DWORD>(systemHandles.size()), systemHandles.data(), FALSE, 0);
}

}  // namespace korvanta
