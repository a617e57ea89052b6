// SPDX-License-Identifier: MIT
#include "pollablesemaphore.h"

#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace tolvane::backend {

namespace {

[[noreturn]] void fail()
{
    throw std::system_error(errno, std::generic_category(), "eventfd");
}

} // namespace

PollableSemaphore::PollableSemaphore()
    : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK | EFD_SEMAPHORE))
{
    if (m_descriptor < 0)
        fail();
}

PollableSemaphore::~PollableSemaphore()
{
    ::close(m_descriptor);
}

void PollableSemaphore::release() const
{
    const std::uint64_t one = 1;
    if (::write(m_descriptor, &one, sizeof(one)) != sizeof(one))
        fail();
}

bool PollableSemaphore::tryAcquire() const
{
    std::uint64_t one = 0;
    return ::read(m_descriptor, &one, sizeof(one)) == sizeof(one);
}

} // namespace tolvane::backend
