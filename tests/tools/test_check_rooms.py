# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Every rule of the room check finds its fault in a bad sample, and leaves a good house alone."""

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))

from check_rooms import House  # noqa: E402

HEAD = "// SPDX-FileCopyrightText: 2026 Someone\n// SPDX-License-Identifier: Apache-2.0\n"

GOOD = {
    "src/base/Fd.h": HEAD + "#include <unistd.h>\n",
    "src/comms/Socket.cpp": HEAD + '#include "comms/Socket.h"\n#include "logging/Log.h"\n#include "base/Fd.h"\n',
    "src/model/Model.cpp": HEAD + '// Q_OBJECT and #include <QString> are for others.\n#include "comms/Socket.h"\n',
    "src/toolkit/View.cpp": HEAD + '#include <QWidget>\n#include "ui_View.h"\n#include "resources/Text.h"\n',
    "src/shell/Item.h": HEAD + '#include "model/Model.h"\n#include "toolkit/View.h"\nclass I { Q_OBJECT };\n',
    "src/model/CMakeLists.txt": "# no Qt6::Core here\nfv2_room(model SOURCES Model.cpp LINKS fv2_comms)\n",
    "service/protocol/Answer.cpp": HEAD + '#include "protocol/Answer.h"\n#include "comms/Socket.h"\n',
    "service/simulation/Play.cpp": HEAD + '#include "protocol/Answer.h"\n#include "base/Fd.h"\n',
    "service/Options.h": HEAD,
    "service/main.cpp": HEAD + '#include "Options.h"\n#include "simulation/Play.h"\n',
    "service/scenarios/first.json": "{}\n",
    "tools/tool.py": HEAD.replace("//", "#"),
}

BAD = (
    ("a room above", "src/model/A.cpp", HEAD + '#include "shell/Item.h"\n', "may not know 'shell'"),
    ("a room beside", "src/comms/A.h", HEAD + '#include "resources/Text.h"\n', "may not know 'resources'"),
    ("the model in the toolkit", "src/toolkit/A.h", HEAD + '#include "model/Model.h"\n', "may not know 'model'"),
    ("the service in the agent", "src/app/A.cpp", HEAD + '#include "protocol/Answer.h"\n', "may not know 'protocol'"),
    ("a link upwards", "src/comms/CMakeLists.txt", "fv2_room(comms LINKS fv2_model)\n", "links 'model'"),
    ("a header without a room", "src/app/A.cpp", HEAD + '#include "Model.h"\n', "without naming its room"),
    ("a header of another folder", "service/main.cpp", HEAD + '#include "Play.h"\n', "without naming its room"),
    ("a simulation in the protocol", "service/protocol/A.h", HEAD + '#include "simulation/Play.h"\n', "'simulation'"),
    ("the model in the service", "service/simulation/A.h", HEAD + '#include "model/Model.h"\n', "may not know 'model'"),
    ("screens in the service's main", "service/main.cpp", HEAD + '#include "screens/Page.h"\n', "'screens'"),
    ("a Qt header on the ground", "src/model/A.h", HEAD + "#include <QString>\n", "includes QString"),
    ("a quoted Qt header on the ground", "src/logging/A.h", HEAD + '#include "QtCore/qstring.h"\n', "knows no Qt"),
    ("a meta-object on the ground", "src/comms/A.h", HEAD + "class A { Q_OBJECT };\n", "says Q_OBJECT"),
    ("Qt's keywords on the ground", "src/base/A.h", HEAD + "signals:\n", "says signals:"),
    ("Qt linked on the ground", "src/resources/CMakeLists.txt", "fv2_room(r LINKS Qt6::Core)\n", "says Qt6::Core"),
    ("a long file", "src/app/A.cpp", HEAD + "\n" * 399, "has 401 lines"),
    ("a long header", "src/app/A.h", HEAD + "\n" * 149, "has 151 lines"),
    ("no licence", "tests/base/A.cpp", "int a;\n", "no SPDX head"),
    ("no licence in Python", "demo/a.py", "import os\n", "no SPDX head"),
    ("an unknown room", "src/cellar/A.h", HEAD, "unknown room 'cellar'"),
    ("an unknown room of the service", "service/attic/A.h", HEAD, "unknown room 'attic'"),
    ("a file outside of the rooms", "src/A.cpp", HEAD, "outside of every room"),
)


def faults_of(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            file = Path(folder, name)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        return House(folder).check()


class CheckRooms(unittest.TestCase):
    def test_a_good_house_has_no_fault(self):
        self.assertEqual(faults_of(GOOD), [])

    def test_each_bad_file_is_the_one_fault_found(self):
        for what, name, text, message in BAD:
            with self.subTest(what):
                found = faults_of({**GOOD, name: text})
                self.assertEqual(len(found), 1, found)
                self.assertTrue(found[0].startswith(name.removesuffix("/A.h") if "room '" in message else name), found)
                self.assertIn(message, found[0])


if __name__ == "__main__":
    unittest.main()
