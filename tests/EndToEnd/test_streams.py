"""The standard streams as whoever starts the program may leave them: closed, or read by nobody."""

import os
import unittest

from probe import ProbeTest
from processes import wait_until

BLUE = (0, 0, 255)


class StreamsTest(ProbeTest):
    def check_widgets(self, command, **streams):
        process = self.session.processes.start("kelmar-widgets", command,
                                               self.session.environment, **streams)
        wait_until(lambda: self.session.windows_named("Probe")
                   and self.probe.background() == BLUE or process.poll() is not None,
                   "the widget's content")
        self.assertIsNone(process.poll())

    def command(self, streams):
        return ["sh", "-c", f'exec "$0" "$@" {streams}', *self.probe.command()]

    def test_widgets_come_with_standard_error_closed(self):
        self.check_widgets(self.command("2>&-"))

    def test_widgets_come_with_all_streams_closed(self):
        self.check_widgets(self.command("<&- >&- 2>&-"))

    def test_widgets_come_where_the_reader_of_standard_error_has_gone(self):
        self.check_widgets(["sh", "-c", '{ "$0" "$@" 2>&1 >&3 | true; } 3>&1',
                            *self.probe.command()])

    def test_widgets_come_where_qt_has_much_to_say_to_a_reader_that_has_gone(self):
        self.session.environment["QT_LOGGING_RULES"] = "qt.*=true"
        self.test_widgets_come_where_the_reader_of_standard_error_has_gone()

    def test_widgets_come_where_qt_has_much_to_say_and_nobody_reads_it(self):
        self.session.environment["QT_LOGGING_RULES"] = "qt.*=true"
        self.test_widgets_come_where_nobody_reads_standard_error()

    def test_widgets_come_where_nobody_reads_standard_error(self):
        reading, writing = os.pipe()
        self.addCleanup(os.close, reading)
        os.set_blocking(writing, False)
        try:
            while True:
                os.write(writing, bytes(4096))
        except BlockingIOError:
            os.set_blocking(writing, True)
        self.addCleanup(os.close, writing)
        self.check_widgets(self.command("2>&1"), stdout=writing)


if __name__ == "__main__":
    unittest.main()
