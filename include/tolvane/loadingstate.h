// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The state of remote content.

#include <tolvane/error.h>

#include <optional>
#include <utility>
#include <variant>

namespace tolvane {

/// The loading state of a piece of remote content: a plain value that its store replaces.
///
/// | case                   | meaning                                                       |
/// |------------------------|---------------------------------------------------------------|
/// | `loadingWithPreview`   | a load is running, a provisional value can be shown meanwhile |
/// | `loaded`               | the content is available                                      |
/// | `error`                | the last load failed                                          |
/// | `idle`                 | nothing was requested yet                                     |
/// | `loading`              | a load is running, nothing can be shown yet                   |
/// | `empty`                | the load succeeded and there is nothing to show               |
///
/// A function with the name of each case constructs it. As thread-safe as its `Value`.
///
/// @tparam Value the content, copied in and out
template <typename Value>
class LoadingState
{
public:
    /// The cases of the table above.
    enum class Case { loadingWithPreview, loaded, error, idle, loading, empty };

    /// `idle`
    LoadingState() = default;

    /// A load is running, and `preview` can be shown meanwhile.
    static LoadingState loadingWithPreview(Value preview)
    {
        return {Case::loadingWithPreview, std::move(preview)};
    }
    /// `value` is the content.
    static LoadingState loaded(Value value) { return {Case::loaded, std::move(value)}; }
    /// The load failed because of `error`, which must not be null.
    static LoadingState error(ErrorPtr error) { return {Case::error, std::move(error)}; }
    /// Nothing was requested yet.
    static LoadingState idle() { return {}; }
    /// A load is running, and there is nothing to show.
    static LoadingState loading() { return {Case::loading, std::monostate()}; }
    /// The load succeeded, and there is nothing to show.
    static LoadingState empty() { return {Case::empty, std::monostate()}; }

    /// The current case.
    Case current() const { return m_case; }

    /// True while a load runs, with or without a preview.
    bool isLoading() const { return m_case == Case::loading || m_case == Case::loadingWithPreview; }

    /// The content; absent in every case but `loaded`, even with a preview.
    std::optional<Value> value() const { return payload(Case::loaded); }

    /// The provisional content; absent in every case but `loadingWithPreview`.
    std::optional<Value> previewValue() const { return payload(Case::loadingWithPreview); }

    /// Why the load failed; null in every case but `error`.
    ErrorPtr failure() const
    {
        const ErrorPtr *error = std::get_if<ErrorPtr>(&m_payload);
        return error ? *error : nullptr;
    }

private:
    using Payload = std::variant<std::monostate, Value, ErrorPtr>;

    LoadingState(Case current, Payload payload)
        : m_case(current)
        , m_payload(std::move(payload))
    {
    }

    std::optional<Value> payload(Case wanted) const
    {
        if (m_case != wanted)
            return std::nullopt;
        return std::get<Value>(m_payload);
    }

    Case m_case = Case::idle;
    Payload m_payload;
};

} // namespace tolvane
