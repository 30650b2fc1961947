// The setting: keyboard access is there while an object for it is.
// Not here: what that object does (keyboardnavigation.cpp).
#include "playwidget/keyboardaccess.h"

#include "playwidget/keyboardnavigation.h"
#include "playwidget/playwidget.h"
#include "playwidget/playwidget_impl.h"

namespace {

PlayWidget_Impl *implementation(const PlayWidget *player)
{
    return player ? player->findChild<PlayWidget_Impl *>(QString(), Qt::FindDirectChildrenOnly)
                  : nullptr;
}

KeyboardNavigation *navigation(const PlayWidget_Impl *player)
{
    return player ? player->findChild<KeyboardNavigation *>(QString(), Qt::FindDirectChildrenOnly)
                  : nullptr;
}

}  // namespace

void setKeyboardAccess(PlayWidget *player, bool on)
{
    PlayWidget_Impl *impl = implementation(player);
    KeyboardNavigation *present = navigation(impl);
    if (on && impl && !present)
        new KeyboardNavigation(impl);
    else if (!on)
        delete present;
}

bool hasKeyboardAccess(const PlayWidget *player)
{
    return navigation(implementation(player)) != nullptr;
}
