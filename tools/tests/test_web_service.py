import os
import shutil
import socket
import subprocess
import tempfile
import unittest
import urllib.error
import urllib.request

COMMAND = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "web-service")
# One that no other run of these tests has at the same moment.
ADDRESS = f"127.2.{os.getpid() // 250 % 250}.{os.getpid() % 250 + 1}"
START = f'source "$1"; webAddresses=({ADDRESS}); webStart "$2" "$3" || exit 1; echo ready; read -r; webEnd'


class WebServiceTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        self.network = os.path.join(self.folder, "network")
        self.share = os.path.join(self.network, ADDRESS, "TLXData$")
        os.makedirs(self.share)

    def start(self):
        """Starts the service; it ends when its input does."""
        process = subprocess.Popen(["bash", "-c", START, "test", COMMAND, os.path.join(self.folder, "service"), self.network],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.communicate)
        return process

    def fetch(self, name):
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        try:
            with opener.open(f"http://{ADDRESS}/TLXData/{name}", timeout=10) as answer:
                return answer.read()
        except urllib.error.HTTPError as error:
            with error:
                return error.read()

    def test_files_come_byte_for_byte_and_missing_ones_are_said_to_be_missing(self):
        content = b"\xff\xfe" + bytes(range(256)) * 20
        with open(os.path.join(self.share, "jsmith.007"), "wb") as file:
            file.write(content)
        service = self.start()
        self.assertEqual(service.stdout.readline(), "ready\n", "what it says is in its error output")
        self.assertEqual(self.fetch("jsmith.007"), content)
        self.assertEqual(self.fetch("jsmith.008"), b"file not found")

    def test_an_address_that_another_server_has_taken_meanwhile_is_a_failure(self):
        with socket.create_server((ADDRESS, 80)):
            output, errors = self.start().communicate(timeout=30)
        self.assertEqual(output, "")
        self.assertIn("nginx did not start", errors)


if __name__ == "__main__":
    unittest.main()
