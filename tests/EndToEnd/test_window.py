"""The widgets' windows on a real X server, with an extension that shows coloured fields."""

import json
import os
import signal
import subprocess
import time
import unittest

from picture import Picture
from probe import BAR, BESIDE_ALL, BUTTON, COUNTDOWN, LINK, SMALL_BESIDE_ALL, TOGGLE, ProbeTest
from processes import (GIVE_UP_TIME, children_of, context_switches, loads, wait_for_sleep,
                       wait_until)
from session import PLAIN_COLOR, SCREEN_SIZE, WALLPAPER
from x_settings import XSettings

BLUE = (0, 0, 255)
RED = (255, 0, 0)
ORANGE = (255, 128, 0)
BEYOND_THE_USUAL_SIZE = (370, 420)  # of the large family
ARRANGEMENT = ".config/kelmar-widgets/arrangement.json"


class WindowTest(ProbeTest):
    def wait_for_background(self, color, place=BESIDE_ALL):
        wait_until(lambda: self.probe.background(place) == color, f"the background {color}")

    def assert_sleeps(self, process):
        wait_until(lambda: not children_of(process.pid), "the extension to go")
        wait_for_sleep(process.pid)
        before = context_switches(process.pid)
        time.sleep(3)
        self.assertEqual(context_switches(process.pid), before)


class OnTheDesktopTest(WindowTest):
    def test_window_tells_the_window_manager_to_stay_out_of_the_way(self):
        self.probe.start_widgets()
        window = self.probe.window()
        for state in ("BELOW", "SKIP_TASKBAR", "SKIP_PAGER"):
            wait_until(lambda state=state: "_NET_WM_STATE_" + state
                       in self.session.property_of(window, "_NET_WM_STATE"), "the state " + state)
        self.assertIn("4294967295", self.session.property_of(window, "_NET_WM_DESKTOP"))
        self.assertIn("Client accepts input or input focus: False",
                      self.session.property_of(window, "WM_HINTS"))
        self.assertIn("_NET_FRAME_EXTENTS(CARDINAL) = 0, 0, 0, 0",
                      self.session.property_of(window, "_NET_FRAME_EXTENTS"))

    def test_window_has_its_states_again_after_its_size_was_changed(self):
        self.probe.start_widgets()
        before = self.session.property_of(self.probe.window(), "_NET_WM_STATE")
        self.probe.open_menu(BESIDE_ALL)
        self.probe.choose()
        wait_until(lambda: self.probe.geometry()[2:] == (170, 170), "the small widget")
        self.assertEqual(self.session.property_of(self.probe.window(), "_NET_WM_STATE"), before)

    def test_window_stays_below_another_that_covers_it(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        place = self.probe.place()
        self.session.open_plain_window(place[0] + 50, place[1] + 100, 200, 150)
        wait_until(lambda: self.probe.background() == PLAIN_COLOR, "the covering window")
        # A press on what can still be seen of the widget must not raise it.
        self.probe.click((20, 300))
        self.session.move_pointer(0, 0)
        self.session.settle()
        self.assertEqual(self.probe.background(), PLAIN_COLOR)

    def test_window_lies_below_all_where_the_window_manager_keeps_none_below(self):
        self.session.screen.change_what_the_window_manager_understands(
            remove=["_NET_WM_STATE_BELOW"])
        self.session.open_plain_window(1150, 300, 100, 80)
        owner = self.session.active_window()
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.assertTrue(self.is_unmanaged())
        self.assertEqual(self.probe.geometry(), (900, 16, 364, 382))
        self.assertEqual(self.session.screen.picture(1200, 340, 1, 1).pixel(0, 0), PLAIN_COLOR)
        self.probe.click(BUTTON)
        wait_until(lambda: self.probe.requests("intent/perform"), "the press to arrive")
        self.assertEqual(self.session.active_window(), owner)

    def is_unmanaged(self):
        """None while there is no window, such as between one and the next of the same widget."""
        return next((window.is_popup for window in self.session.screen.windows()
                     if window.name == "Probe"), None)

    def test_widgets_stay_while_all_windows_are_put_aside_to_see_the_desktop(self):
        self.probe.start_widgets()
        self.session.open_plain_window(20, 20, 200, 100)
        geometry = self.probe.geometry()
        self.session.screen.show_desktop(True)
        wait_until(lambda: not self.session.windows_named("Plain Window"), "the window to go")
        wait_until(self.is_unmanaged, "the widget among what is left")
        self.wait_for_background(BLUE)
        self.assertEqual(self.probe.geometry(), geometry)
        self.probe.click(BUTTON)
        wait_until(lambda: self.probe.requests("intent/perform"), "the press to arrive")
        self.assertEqual(self.session.windows_named("Plain Window"), [])
        self.session.screen.show_desktop(False)
        wait_until(lambda: self.session.windows_named("Plain Window"), "the window to come back")
        wait_until(lambda: self.is_unmanaged() is False,
                   "the widget in the window manager's hands")
        self.wait_for_background(BLUE)
        self.assertEqual(self.probe.geometry(), geometry)
        self.assertIn("_NET_WM_STATE_BELOW",
                      self.session.property_of(self.probe.window(), "_NET_WM_STATE"))

    def test_window_is_a_dock_to_those_window_managers_that_put_all_but_docks_aside(self):
        for manager, is_dock in (("Openbox", False), ("GNOME Shell", True), ("Metacity", True),
                                 ("Mutter (Muffin)", True)):
            with self.subTest(manager):
                self.session.screen.name_the_window_manager(manager)
                process = self.probe.start_widgets()
                kinds = self.session.property_of(self.probe.window(), "_NET_WM_WINDOW_TYPE")
                self.assertEqual("_NET_WM_WINDOW_TYPE_DOCK" in kinds, is_dock, kinds)
                self.session.processes.end(process)
                wait_until(lambda: not self.session.windows_named("Probe"), "the widget to go")

    def test_window_follows_a_window_manager_that_comes_later(self):
        self.probe.start_widgets()
        self.assertIs(self.is_unmanaged(), False)
        self.session.screen.change_what_the_window_manager_understands(
            remove=["_NET_WM_STATE_BELOW"])
        wait_until(self.is_unmanaged, "the widget out of its hands")
        self.session.screen.change_what_the_window_manager_understands(add=["_NET_WM_STATE_BELOW"])
        wait_until(lambda: self.is_unmanaged() is False, "the widget in its hands")
        self.wait_for_background(BLUE)

    def test_click_leaves_the_keyboard_where_it_is(self):
        self.probe.start_widgets()
        self.session.open_plain_window(20, 20, 200, 100)
        owner = self.session.active_window()
        self.probe.click(BUTTON)
        wait_until(lambda: self.probe.requests("intent/perform"), "the press to arrive")
        self.assertEqual(self.session.active_window(), owner)

    def test_window_managers_close_does_not_take_a_widget_away(self):
        process = self.probe.start_widgets()
        self.session.press_keys_on(self.probe.window(), "alt+F4")
        self.session.settle()
        self.assertIsNone(process.poll())
        self.assertEqual(len(self.session.windows_named("Probe")), 1)


class CornerTest(WindowTest):
    def corners(self):
        """The four corners inside the margins, which are rounded with a radius of 22."""
        width, height = 364, 382
        whole = self.probe.part((0, 0, width, height))
        return [whole.part(left, top, 16, 16) for left in (0, width - 16)
                for top in (0, height - 16)]

    def blended_pixels(self):
        """How many pixels are neither the wallpaper nor the widget, whose edge is a bit darker."""
        def is_blended(pixel):
            return pixel != WALLPAPER and not (pixel[:2] == (0, 0) and pixel[2] > 0xD0)
        return sum(map(is_blended, (corner.pixel(x, y) for corner in self.corners()
                                    for x in range(16) for y in range(16))))

    def test_corners_show_what_is_behind_and_never_black(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        corners = self.corners()
        for corner, (x, y) in zip(corners, ((0, 0), (0, 15), (15, 0), (15, 15))):
            self.assertEqual(corner.pixel(x, y), WALLPAPER)
        self.assertEqual(self.blended_pixels(), 0)

    def test_corners_are_blended_as_long_as_a_compositor_runs(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.assertEqual(self.blended_pixels(), 0)
        compositor = self.session.processes.start("xcompmgr", ["xcompmgr"],
                                                  self.session.environment)
        wait_until(lambda: self.blended_pixels() > 20, "blended corners")
        self.session.processes.end(compositor)
        wait_until(lambda: self.blended_pixels() == 0, "corners that are cut out again")


class PressTest(WindowTest):
    def test_press_on_a_button_performs_its_intent_and_asks_for_new_content(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.probe.set_color(1, 0.5, 0)
        self.probe.click(BUTTON)
        self.wait_for_background(ORANGE)
        self.assertEqual(self.probe.requests("intent/perform"), [{"intent": {
            "name": "Press", "parameters": {"id": "a/b", "count": 3, "on": True}}}])

    def test_press_on_a_toggle_performs_its_intent(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.probe.click(TOGGLE)
        wait_until(lambda: self.probe.requests("intent/perform"), "the press to arrive")
        self.assertEqual(self.probe.requests("intent/perform"),
                         [{"intent": {"name": "Flip", "parameters": {"value": False}}}])

    def test_url_that_an_action_opens_reaches_the_registered_program(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.probe.click(BUTTON)
        wait_until(lambda: self.session.opened_urls() == ["probe://performed/Press"],
                   "the address to be opened")

    def test_press_on_a_link_opens_it_and_performs_nothing(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.probe.click(LINK)
        wait_until(lambda: self.session.opened_urls() == ["probe://linked"],
                   "the link to be opened")
        self.assertEqual(self.probe.requests("intent/perform"), [])

    def test_what_opens_links_is_loaded_with_the_first_of_them(self):
        process = self.probe.start_widgets()
        self.assertFalse(loads(process.pid, "libgio"))
        self.probe.click(LINK)
        wait_until(self.session.opened_urls, "the link to be opened")
        self.assertTrue(loads(process.pid, "libgio"))

    def test_press_beside_every_action_opens_the_widgets_own_link_if_it_has_one(self):
        self.probe.start_widgets("--add", "Probe:small")
        self.wait_for_background(BLUE, SMALL_BESIDE_ALL)
        self.probe.click(SMALL_BESIDE_ALL)
        wait_until(lambda: self.session.opened_urls() == ["probe://whole"],
                   "the widget's link to be opened")

    def assert_only_a_link_lets_its_program_come_to_the_front(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.probe.click(BUTTON)
        wait_until(lambda: len(self.session.opened_urls()) == 1, "the action's address")
        self.probe.click(LINK)
        wait_until(lambda: len(self.session.opened_urls()) == 2, "the link")
        of_action, of_link = self.session.startup_ids()
        self.assertEqual(of_action, "")
        self.assertRegex(of_link, r"_TIME[1-9][0-9]*$")

    def test_link_lets_its_program_come_to_the_front_and_an_action_does_not(self):
        self.assert_only_a_link_lets_its_program_come_to_the_front()

    def test_link_does_so_where_the_moment_of_a_press_is_kept_in_a_window_of_its_own(self):
        self.session.screen.change_what_the_window_manager_understands(
            add=["_NET_WM_USER_TIME_WINDOW"])
        self.assert_only_a_link_lets_its_program_come_to_the_front()

    def test_release_outside_the_pressed_field_does_nothing(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        x, y = self.probe.place()
        # Across the button's right edge, not far enough for a drag.
        self.session.drag((x + 54, y + 36), (x + 59, y + 36))
        self.probe.click(LINK)
        wait_until(self.session.opened_urls, "the later press to arrive")
        self.assertEqual(self.probe.requests("intent/perform"), [])


class PlaceTest(WindowTest):
    def drag_by(self, right, down):
        x, y = self.probe.place()
        start = (x + BESIDE_ALL[0], y + BESIDE_ALL[1])
        self.session.drag(start, (start[0] + right, start[1] + down))

    def kept_arrangement(self):
        path = self.session.path_in_home(ARRANGEMENT)
        if not os.path.exists(path):
            return ""
        with open(path, encoding="utf-8") as file:
            return file.read()

    def restart(self, process, *arguments):
        self.assertEqual(self.session.processes.end(process), 0)
        return self.probe.start_widgets(*arguments)

    def test_first_start_shows_one_widget_of_every_kind(self):
        self.probe.start_widgets()
        self.assertEqual(self.probe.geometry(), (SCREEN_SIZE[0] - 16 - 364, 16, 364, 382))

    def test_dragged_widget_lands_on_the_grid(self):
        self.probe.start_widgets()
        self.drag_by(-301, 99)
        wait_until(lambda: self.probe.place() == (600, 112), "the widget to lie on the grid")
        # And there it stays.
        self.session.settle()
        self.assertEqual(self.probe.place(), (600, 112))

    def test_drag_that_begins_on_a_button_does_not_press_it(self):
        self.probe.start_widgets()
        x, y = self.probe.place()
        self.session.drag((x + BUTTON[0], y + BUTTON[1]), (x - 200, y + 100))
        wait_until(lambda: self.probe.place() == (664, 80), "the widget to lie where it was left")
        self.probe.click(TOGGLE)
        wait_until(lambda: self.probe.requests("intent/perform"), "the later press to arrive")
        self.assertEqual([request["intent"]["name"]
                          for request in self.probe.requests("intent/perform")], ["Flip"])

    def test_widget_is_found_at_its_place_after_a_restart(self):
        process = self.probe.start_widgets()
        self.drag_by(-420, 200)
        wait_until(lambda: self.probe.place() == (480, 216), "the widget to move")
        wait_until(lambda: "480" in self.kept_arrangement(), "the place to be kept")
        self.restart(process)
        self.assertEqual(self.probe.place(), (480, 216))

    def test_place_survives_a_program_that_was_killed(self):
        process = self.probe.start_widgets()
        self.drag_by(-420, 200)
        wait_until(lambda: self.probe.place() == (480, 216), "the widget to move")
        wait_until(lambda: "480" in self.kept_arrangement(), "the place to be kept")
        self.session.processes.end(process, signal.SIGKILL)
        self.probe.start_widgets()
        self.assertEqual(self.probe.place(), (480, 216))

    def test_widget_dropped_beyond_the_edge_comes_back_into_view(self):
        self.probe.start_widgets()
        self.drag_by(150, 0)
        wait_until(lambda: self.probe.place() == (SCREEN_SIZE[0] - 364, 16),
                   "the widget to be at the edge")

    def test_several_widgets_are_all_found_again(self):
        process = self.probe.start_widgets("--add", "Probe:small", "--add", "Probe:medium")
        two = self.session.geometries_of("Probe")
        self.assertEqual(len(two), 2)
        self.restart(process)
        wait_until(lambda: len(self.session.windows_named("Probe")) == 2, "both windows")
        self.assertEqual(self.session.geometries_of("Probe"), two)

    def test_damaged_arrangement_is_set_aside_and_said(self):
        self.session.write_in_home(ARRANGEMENT, '{"version": 1, "widg')
        self.probe.start_widgets()
        with open(self.session.path_in_home(ARRANGEMENT + ".damaged"), encoding="utf-8") as file:
            self.assertEqual(file.read(), '{"version": 1, "widg')
        self.assertIn("arrangement.json.damaged",
                      self.session.processes.log_of("kelmar-widgets"))

    def test_widget_that_is_no_longer_offered_keeps_its_place_in_the_file(self):
        self.session.write_in_home(ARRANGEMENT, json.dumps({
            "version": 1, "renderingMode": "fullColor", "widgets": [
                {"kind": kind, "family": "small", "x": x, "y": 400,
                 "screen": {"name": "screen", "x": 0, "y": 0, "width": 1280, "height": 800}}
                for kind, x in (("Probe", 400), ("Gone", 800))]}))
        process = self.probe.start_widgets()
        wait_until(lambda: '"Gone"' in self.session.processes.log_of("kelmar-widgets"),
                   "a line in the log")
        self.assertEqual(self.session.windows_named("Gone"), [])
        self.session.processes.end(process)
        with open(self.session.path_in_home(ARRANGEMENT), encoding="utf-8") as file:
            kept = {(widget["kind"], widget["x"]) for widget in json.load(file)["widgets"]}
        self.assertEqual(kept, {("Probe", 400), ("Gone", 800)})


class ExtensionTest(WindowTest):
    def test_changed_file_shows_new_content(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.probe.set_color(1, 0.5, 0)
        self.probe.tell_of_change()
        self.wait_for_background(ORANGE)

    def test_killed_extension_comes_back_when_it_is_needed(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        killed = self.probe.process_id()
        try:
            os.kill(killed, signal.SIGKILL)
        except ProcessLookupError:
            pass  # It had been sent away already, being idle.
        self.probe.set_color(1, 0.5, 0)
        self.probe.tell_of_change()
        self.wait_for_background(ORANGE)
        self.assertNotEqual(self.probe.process_id(), killed)

    def test_last_content_stays_while_the_extension_cannot_be_started(self):
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        program = os.path.join(self.probe.folder, "probe-extension")
        os.rename(program, program + ".away")
        try:
            os.kill(self.probe.process_id(), signal.SIGKILL)
        except ProcessLookupError:
            pass
        self.probe.tell_of_change()
        wait_until(lambda: "probe-extension" in self.session.processes.log_of("kelmar-widgets"),
                   "a line in the log")
        self.assertEqual(self.probe.background(), BLUE)

    def test_idle_extension_is_sent_away_and_called_again(self):
        process = self.probe.start_widgets()
        self.wait_for_background(BLUE)
        wait_until(lambda: not children_of(process.pid), "the extension to go")
        self.probe.set_color(1, 0.5, 0)
        self.probe.tell_of_change()
        self.wait_for_background(ORANGE)


class LiveTest(WindowTest):
    def start(self, *things):
        self.probe.show_live_things(*things)
        self.process = self.probe.start_widgets()
        self.wait_for_background(BLUE)

    def wait_for_movement(self, area):
        # Twice, since the first change may be that of the widget's new content.
        for _ in range(2):
            before = self.probe.part(area)
            wait_until(lambda before=before: self.probe.part(area) != before, f"{area} to move")

    def test_countdown_and_bar_move_by_themselves(self):
        self.start("countdown", "bar")
        self.wait_for_movement(COUNTDOWN)
        self.wait_for_movement(BAR)

    def test_bar_that_moves_by_no_pixel_wakes_nobody(self):
        # 332 pixels a day: one in more than four minutes.
        self.start("slow bar")
        self.assert_sleeps(self.process)

    def test_nothing_is_redrawn_while_the_widget_is_covered(self):
        self.start("countdown", "bar")
        wait_until(lambda: not children_of(self.process.pid), "the extension to go")
        x, y, width, height = self.probe.geometry()
        cover = self.session.open_plain_window(x - 12, y - 12, width + 24, height + 24)
        self.assert_sleeps(self.process)
        self.session.processes.end(cover)
        self.wait_for_background(BLUE)
        self.wait_for_movement(COUNTDOWN)


class ScaleTest(WindowTest):
    def check_scale(self, factor):
        self.session.environment["QT_SCALE_FACTOR"] = str(factor)
        self.probe.start_widgets()
        self.check_look(factor)

    def check_look(self, factor):
        self.assertEqual(self.probe.geometry()[2:],
                         (364 * factor, round(382 * factor)))
        beside = tuple(round(length * factor) for length in BESIDE_ALL)
        self.wait_for_background(BLUE, beside)
        # The button's left edge lies on a whole pixel and is sharp.
        edge, middle = round(16 * factor), round(36 * factor)
        row = self.probe.part((edge - 1, middle, 2, 1))
        self.assertEqual((row.pixel(0, 0), row.pixel(1, 0)), (BLUE, RED))
        self.probe.click((middle, middle))
        wait_until(lambda: self.probe.requests("intent/perform"), "the press to arrive")

    def test_widget_is_sharp_and_can_be_pressed_at_a_scale_of_one_and_a_quarter(self):
        self.check_scale(1.25)

    def test_widget_is_sharp_and_can_be_pressed_at_a_scale_of_one_and_a_half(self):
        self.check_scale(1.5)

    def test_widget_is_sharp_and_can_be_pressed_at_a_scale_of_two(self):
        self.check_scale(2)

    def test_widget_is_sharp_and_whole_after_a_change_of_the_resolution(self):
        settings = XSettings(self.session.environment["DISPLAY"], 96)
        self.addCleanup(settings.close)
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        settings.set_resolution(120)
        self.wait_for_background(BLUE, BEYOND_THE_USUAL_SIZE)
        self.check_look(1.25)
        settings.set_resolution(96)
        wait_until(lambda: self.probe.geometry()[2:] == (364, 382), "the usual size")
        self.check_look(1)


class DesktopPictureTest(WindowTest):
    def draw(self, *arguments):
        path = os.path.join(self.session.folder, "desktop.png")
        environment = {name: value for name, value in self.session.environment.items()
                       if name != "DISPLAY"}
        subprocess.run(self.probe.command("--picture", path, *arguments), env=environment,
                       check=True)
        return Picture.of_file(path)

    def test_picture_shows_the_first_desktop_without_a_display(self):
        picture = self.draw()
        self.assertEqual((picture.width, picture.height), SCREEN_SIZE)
        x, y = SCREEN_SIZE[0] - 16 - 364, 16
        self.assertEqual(picture.pixel(x + BUTTON[0], y + BUTTON[1]), RED)
        self.assertEqual(picture.pixel(x + BESIDE_ALL[0], y + BESIDE_ALL[1]), BLUE)
        self.assertNotEqual(picture.pixel(x - 10, y), BLUE)
        self.assertFalse(os.path.exists(self.session.path_in_home(ARRANGEMENT)))

    def test_picture_is_as_large_as_the_scale_makes_it(self):
        self.session.environment["QT_SCALE_FACTOR"] = "2"
        picture = self.draw()
        self.assertEqual((picture.width, picture.height), (2560, 1600))

    def test_picture_shows_the_kept_arrangement(self):
        process = self.probe.start_widgets("--add", "Probe:small")
        x, y = self.probe.place()
        self.session.processes.end(process)
        picture = self.draw()
        self.assertEqual(picture.pixel(x + TOGGLE[0], y + TOGGLE[1]), (0, 255, 0))
        self.assertNotEqual(picture.pixel(x, y + 200), BLUE)


class SurroundingsTest(WindowTest):
    def test_program_ends_cleanly_when_told_to(self):
        for ending in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(ending=ending.name):
                process = self.probe.start_widgets()
                self.assertEqual(self.session.processes.end(process, ending), 0)

    def test_desktop_without_session_bus_and_compositor_says_so_once_and_works(self):
        del self.session.environment["DBUS_SESSION_BUS_ADDRESS"]
        process = self.probe.start_widgets()
        self.wait_for_background(BLUE)
        log = self.session.processes.log_of("kelmar-widgets").splitlines()
        self.assertEqual(sum("session bus" in line for line in log), 1, log)
        self.assertEqual(sum("compositor" in line for line in log), 1, log)
        self.assertEqual(sum("system tray" in line for line in log), 1, log)
        self.assertIsNone(process.poll())

    def test_missing_key_file_ends_the_program_with_a_line_that_names_it(self):
        self.probe.key_file += ".none"
        process = self.session.processes.start(
            "kelmar-widgets", self.probe.command(), self.session.environment)
        self.assertEqual(process.wait(GIVE_UP_TIME), 1)
        self.assertIn("probe.extension.none", self.session.processes.log_of("kelmar-widgets"))

    def test_missing_display_ends_the_program_with_a_line_that_says_so(self):
        self.session.environment["DISPLAY"] = ":4711"
        process = self.session.processes.start(
            "kelmar-widgets", self.probe.command(), self.session.environment)
        self.assertEqual(process.wait(GIVE_UP_TIME), 1)
        self.assertEqual(self.session.processes.log_of("kelmar-widgets"),
                         "There is no X display to put widgets on.\n")

    def test_idle_desktop_sleeps(self):
        process = self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.assert_sleeps(process)


if __name__ == "__main__":
    unittest.main()
