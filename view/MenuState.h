/// The menu items as the parts of the window see them: ticks to read and set, captions to show, clicks to
/// handle.
#pragma once

#include <QString>
#include <algorithm>
#include <functional>
#include <initializer_list>
#include <utility>

namespace quorvin {

/// Options and modes are ticks of menu items; whoever needs one reads it when it runs. Names are the items'.
class MenuState {
public:
    /// The modes in which searches are counted.
    static constexpr std::initializer_list<const char*> kCountingModes = {"freq", "tabella"};

    MenuState() = default;
    MenuState(const MenuState&) = delete;
    MenuState& operator=(const MenuState&) = delete;
    virtual ~MenuState() = default;

    virtual bool isTicked(const QString& name) const = 0;
    bool isAnyTicked(std::initializer_list<const char*> names) const
    {
        return std::any_of(names.begin(), names.end(),
                           [this](const char* name) { return isTicked(QString::fromLatin1(name)); });
    }
    virtual void setTicked(const QString& name, bool ticked) = 0;
    /// Inverts a tick and returns its new state.
    bool toggle(const QString& name)
    {
        const bool ticked = !isTicked(name);
        setTicked(name, ticked);
        return ticked;
    }
    /// Enters or leaves the working mode of that name: its item is ticked, and everything that it switches
    /// off or on, or shows by a caption, follows.
    virtual void setMode(const QString& name, bool on) = 0;
    /// The caption as it reads, without the mark of its access key.
    virtual QString caption(const QString& name) const = 0;
    /// Has `handler` run at each click on an item. Handlers set the tick themselves.
    virtual void onClick(const QString& name, const std::function<void()>& handler) = 0;
    /// The same for several items and methods of one object.
    template<class Owner>
    void onClicks(Owner& owner, std::initializer_list<std::pair<QString, void (Owner::*)()>> handlers)
    {
        for (const auto& [name, click] : handlers)
            onClick(name, [&owner, handler = click] { (owner.*handler)(); });
    }
};

}  // namespace quorvin
