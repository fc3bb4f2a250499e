#include "bench/peer/VirtualDisplay.h"

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "bench/Measure.h"
#include "bench/peer/Process.h"

namespace {

constexpr const char *kScreen = "1280x960x24";
constexpr int kLongestStart = 30000;  // ms

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;
template <class T>
Reply<T> Own(T *reply) {
    return {reply, &std::free};
}

// Starts a server under the first free number and returns the number.
std::string StartServer(CProcess &process) {
    int ends[2];
    Require(pipe(ends) == 0, "no pipe");
    process.Start(
        {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", kScreen, "-nolisten", "tcp", "-noreset"},
        {"PATH=" + std::string(getenv("PATH"))});
    close(ends[1]);
    std::string number;
    char byte = 0;
    pollfd wait = {ends[0], POLLIN, 0};
    while (byte != '\n' && poll(&wait, 1, kLongestStart) == 1 && read(ends[0], &byte, 1) == 1)
        if (byte != '\n') number += byte;
    close(ends[0]);
    Require(!number.empty(), "Xvfb doesn't start");
    return ":" + number;
}

}  // namespace

struct CVirtualDisplay::Impl {
    CProcess server;
    std::string name;
    xcb_connection_t *connection = nullptr;
    xcb_screen_t *screen = nullptr;
    xcb_key_symbols_t *keys = nullptr;

    xcb_atom_t Atom(const char *text) const {
        const auto cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(text)), text);
        const auto reply = Own(xcb_intern_atom_reply(connection, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    void Key(uint32_t symbol, uint8_t type) const {
        const auto codes = Own(xcb_key_symbols_get_keycode(keys, symbol));
        Require(codes && *codes != XCB_NO_SYMBOL, "the display has no such key");
        xcb_test_fake_input(connection, type, *codes, XCB_CURRENT_TIME, screen->root, 0, 0, 0);
    }
};

CVirtualDisplay::CVirtualDisplay() : impl_(std::make_unique<Impl>()) {
    impl_->name = StartServer(impl_->server);
    impl_->connection = xcb_connect(impl_->name.c_str(), nullptr);
    Require(xcb_connection_has_error(impl_->connection) == 0, "the virtual display takes no connection");
    impl_->screen = xcb_setup_roots_iterator(xcb_get_setup(impl_->connection)).data;
    impl_->keys = xcb_key_symbols_alloc(impl_->connection);
    const uint32_t colour = kUnpainted;
    xcb_change_window_attributes(impl_->connection, impl_->screen->root, XCB_CW_BACK_PIXEL, &colour);
    xcb_clear_area(impl_->connection, 0, impl_->screen->root, 0, 0, 0, 0);
    xcb_flush(impl_->connection);
}

CVirtualDisplay::~CVirtualDisplay() {
    xcb_key_symbols_free(impl_->keys);
    xcb_disconnect(impl_->connection);
}

std::string CVirtualDisplay::Name() const {
    return impl_->name;
}

std::vector<CVirtualDisplay::Window> CVirtualDisplay::Windows() const {
    xcb_connection_t *connection = impl_->connection;
    const auto tree = Own(xcb_query_tree_reply(connection, xcb_query_tree(connection, impl_->screen->root), nullptr));
    if (!tree) return {};
    std::vector<Window> windows;
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t id = xcb_query_tree_children(tree.get())[i];
        const auto attributesCookie = xcb_get_window_attributes(connection, id);
        const auto geometryCookie = xcb_get_geometry(connection, id);
        const auto attributes = Own(xcb_get_window_attributes_reply(connection, attributesCookie, nullptr));
        const auto geometry = Own(xcb_get_geometry_reply(connection, geometryCookie, nullptr));
        if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
        if (attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) continue;
        windows.push_back(
            {id, {geometry->x, geometry->y, geometry->width, geometry->height}, attributes->override_redirect != 0});
    }
    return windows;
}

std::optional<CVirtualDisplay::Window> CVirtualDisplay::MainWindow() const {
    std::optional<Window> largest;
    for (const Window &window : Windows())
        if (!window.popup && (!largest || window.area.Size() > largest->area.Size())) largest = window;
    return largest;
}

std::optional<CVirtualDisplay::Window> CVirtualDisplay::Popup() const {
    for (const Window &window : Windows())
        if (window.popup) return window;
    return std::nullopt;
}

void CVirtualDisplay::Focus(const Window &window) const {
    xcb_set_input_focus(impl_->connection, XCB_INPUT_FOCUS_PARENT, window.id, XCB_CURRENT_TIME);
    xcb_flush(impl_->connection);
}

void CVirtualDisplay::AskToClose(const Window &window) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window.id;
    event.type = impl_->Atom("WM_PROTOCOLS");
    event.data.data32[0] = impl_->Atom("WM_DELETE_WINDOW");
    xcb_send_event(impl_->connection, 0, window.id, 0, reinterpret_cast<const char *>(&event));
    xcb_flush(impl_->connection);
}

void CVirtualDisplay::MoveTo(const Window &window, const Area &area) const {
    const uint32_t values[] = {static_cast<uint32_t>(area.x), static_cast<uint32_t>(area.y),
                               static_cast<uint32_t>(area.width), static_cast<uint32_t>(area.height)};
    xcb_configure_window(impl_->connection, window.id,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(impl_->connection);
}

Picture CVirtualDisplay::Grab(const Area &area) const {
    const int left = std::max(area.x, 0), top = std::max(area.y, 0);
    const int right = std::min<int>(area.x + area.width, impl_->screen->width_in_pixels);
    const int bottom = std::min<int>(area.y + area.height, impl_->screen->height_in_pixels);
    Picture picture{{left, top, right - left, bottom - top}, {}};
    Require(picture.area.width > 0 && picture.area.height > 0, "a window lies outside the screen");
    const auto cookie =
        xcb_get_image(impl_->connection, XCB_IMAGE_FORMAT_Z_PIXMAP, impl_->screen->root, static_cast<int16_t>(left),
                      static_cast<int16_t>(top), static_cast<uint16_t>(picture.area.width),
                      static_cast<uint16_t>(picture.area.height), ~0u);
    const auto reply = Own(xcb_get_image_reply(impl_->connection, cookie, nullptr));
    const size_t count = static_cast<size_t>(picture.area.Size());
    Require(reply && static_cast<size_t>(xcb_get_image_data_length(reply.get())) == count * sizeof(uint32_t),
            "the screen can't be read");
    picture.pixels.resize(count);
    std::memcpy(picture.pixels.data(), xcb_get_image_data(reply.get()), count * sizeof(uint32_t));
    for (uint32_t &pixel : picture.pixels) pixel &= 0xffffff;
    return picture;
}

void CVirtualDisplay::Press(uint32_t key, uint32_t held) const {
    if (held) impl_->Key(held, XCB_KEY_PRESS);
    impl_->Key(key, XCB_KEY_PRESS);
    impl_->Key(key, XCB_KEY_RELEASE);
    if (held) impl_->Key(held, XCB_KEY_RELEASE);
    xcb_flush(impl_->connection);
}
