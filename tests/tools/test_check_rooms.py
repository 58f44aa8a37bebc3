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

# REUSE-IgnoreStart
HEAD = "// SPDX-FileCopyrightText: 2026 Someone\n// SPDX-License-Identifier: Apache-2.0\n"
# REUSE-IgnoreEnd

GOOD = {
    "src/model/Model.cpp": HEAD + '// Q_OBJECT and #include <QString> are for others.\n#include "comms/Socket.h"\n',
    "src/screens/main/Menu.cpp": HEAD + '#include "screens/status/Page.h"\n#include "screens/Size.h"\n',
    "src/screens/Factory.cpp": HEAD + '#include "screens/main/Menu.h"\n',
    "src/model/CMakeLists.txt": "# no Qt6::Core here\nfv2_room(model SOURCES Model.cpp LINKS fv2_comms)\n",
    "service/simulation/Play.cpp": HEAD + '#include "protocol/Answer.h"\n#include "base/Fd.h"\n',
}

BAD = (
    ("src/model/A.cpp", HEAD + '#include "shell/Item.h"\n', "may not know 'shell'"),
    ("src/toolkit/A.h", HEAD + '#include "model/Model.h"\n', "may not know 'model'"),
    ("src/screens/status/A.h", HEAD + '#include "screens/main/Menu.h"\n', "may not know 'screens/main'"),
    ("src/screens/Size.h", HEAD + '#include "screens/Factory.h"\n', "circle among screens/Factory, screens/Size, scr"),
    ("src/comms/CMakeLists.txt", "fv2_room(comms LINKS fv2_model)\n", "links 'model'"),
    ("src/app/A.cpp", HEAD + '#include "Model.h"\n', "without naming its room"),
    ("service/simulation/A.h", HEAD + '#include "model/Model.h"\n', "may not know 'model'"),
    ("src/model/A.h", HEAD + "#include <QString>\n", "includes QString"),
    ("src/comms/A.h", HEAD + "class A { Q_OBJECT };\n", "says Q_OBJECT"),
    ("src/app/A.h", HEAD + "\n" * 119, "has 121 lines"),
    ("tests/base/A.cpp", "int a;\n", "no SPDX head"),
    ("src/cellar/A.h", HEAD, "unknown room 'cellar'"),
)


def faults_of(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            file = Path(folder, name)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        return House(folder).check()


class CheckRooms(unittest.TestCase):
    def test_each_bad_file_is_the_one_fault_found_in_a_good_house(self):
        self.assertEqual(faults_of(GOOD), [])
        for name, text, message in BAD:
            with self.subTest(message):
                self.assertRegex("\n".join(faults_of({**GOOD, name: text})), rf"\A.*{message}.*\Z")


if __name__ == "__main__":
    unittest.main()
