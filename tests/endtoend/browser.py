"""A headless Chromium, driven through its driver's own protocol."""

import base64
import json
import shutil
import socket
import subprocess
import tempfile
import time
import urllib.error
import urllib.request


def missing():
    """Why there is no browser to be tested with; "" where there is."""
    absent = [name for name in ("chromium", "chromedriver") if not shutil.which(name)]
    return f"{' and '.join(absent)} not installed" if absent else ""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Browser:
    def __init__(self, scripts=True):
        self.session, self.port = "", free_port()
        self.downloads = tempfile.TemporaryDirectory()
        self.profile = tempfile.TemporaryDirectory()
        self.driver = subprocess.Popen(["chromedriver", f"--port={self.port}", "--silent"],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.await_driver()
        options = {"args": ["--headless=new", "--no-sandbox", "--disable-gpu", "--force-device-scale-factor=1",
                            "--disable-dev-shm-usage", "--no-first-run", f"--user-data-dir={self.profile.name}"],
                   "prefs": {"download.default_directory": self.downloads.name}}
        if not scripts:
            options["prefs"]["profile.managed_default_content_settings.javascript"] = 2
        capabilities = {"browserName": "chrome", "goog:chromeOptions": options,
                        "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"}}
        started = self.call("POST", "/session", {"capabilities": {"alwaysMatch": capabilities}})
        self.session = started["sessionId"]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self.call("DELETE", "")
        finally:
            self.driver.terminate()
            self.driver.wait()
            self.downloads.cleanup()
            try:
                self.profile.cleanup()
            except OSError:
                pass  # the browser's last process may still be tidying up

    def await_driver(self):
        for _ in range(300):
            try:
                urllib.request.urlopen(f"http://127.0.0.1:{self.port}/status", timeout=5)
                return
            except OSError:
                time.sleep(0.1)
        raise RuntimeError("the browser's driver does not answer")

    def call(self, method, path, body=None):
        address = f"http://127.0.0.1:{self.port}" + (f"/session/{self.session}" if self.session else "") + path
        data = None if body is None else json.dumps(body).encode()
        request = urllib.request.Request(address, method=method, data=data, headers={"Content-Type": "application/json"})
        try:
            with urllib.request.urlopen(request, timeout=120) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(error.read().decode()[:2000]) from None

    def devtools(self, command, **parameters):
        return self.call("POST", "/goog/cdp/execute", {"cmd": command, "params": parameters})

    def look(self, width, height, scheme="light"):
        self.devtools("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme},
                                                              {"name": "prefers-reduced-motion", "value": "reduce"}])
        self.devtools("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                      mobile=width < 500)

    def open(self, path):
        self.call("POST", "/url", {"url": path.resolve().as_uri()})

    def run(self, script, *arguments):
        return self.call("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def run_later(self, script, *arguments):
        """The script calls its last argument with the result."""
        return self.call("POST", "/execute/async", {"script": script, "args": list(arguments)})

    def wait_for(self, script, *arguments, seconds=20):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            value = self.run(script, *arguments)
            if value:
                return value
            time.sleep(0.05)
        raise RuntimeError(f"never true: {script}")

    def mouse(self, kind, x, y, buttons=0):
        self.devtools("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left" if buttons else "none",
                      buttons=buttons, clickCount=1 if kind in ("mousePressed", "mouseReleased") else 0)

    def console(self):
        return [entry for entry in self.call("POST", "/se/log", {"type": "browser"})]

    def requests(self):
        """What was asked for since the last call."""
        events = [json.loads(entry["message"])["message"] for entry in self.call("POST", "/se/log", {"type": "performance"})]
        return [event["params"]["request"]["url"] for event in events if event["method"] == "Network.requestWillBeSent"]

    def picture(self):
        return base64.b64decode(self.devtools("Page.captureScreenshot", format="png")["data"])

    def printed(self):
        return base64.b64decode(self.devtools("Page.printToPDF", printBackground=True, preferCSSPageSize=True)["data"])

    def downloaded(self, folder, ending, seconds=20):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = list(folder.glob("*" + ending))
            if found:
                text = found[0].read_text(encoding="utf-8", errors="strict")
                found[0].unlink()
                return text
            time.sleep(0.05)
        raise RuntimeError(f"no {ending} was downloaded")
