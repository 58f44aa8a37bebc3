# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The table of figures and goals: one line a row, printed as soon as it is known."""

import statistics
from dataclasses import dataclass, field
from pathlib import Path

WIDTHS = (66, 30, 6, 14)


@dataclass
class Table:
    """rounds: how often each thing is measured. slack: how many times worse than its goal a figure may be."""

    build: Path
    rounds: int = 15
    slack: float = 1.0
    failed: list = field(default_factory=list)

    def head(self):
        self._print("what", "figures", "ratio", "goal", "")

    def at_most(self, what, figures, value, goal, ratio=None):
        """A row whose value must not be more than the goal; 0 stays 0 with any slack."""
        self._judge(what, figures, ratio, f"≤ {goal:g}", value <= goal * self.slack)

    def at_least(self, what, figures, value, goal, ratio=None):
        self._judge(what, figures, ratio, f"≥ {goal:g}", value >= goal / self.slack)

    def median_at_most(self, what, figures, unit, goal):
        median = statistics.median(figures)
        self.at_most(what, f"{median:.3g} {unit}, at most {max(figures):.3g}", median, goal)

    def against(self, what, ours, bare, unit, goal, more_is_better=False):
        """A row of two lists of figures, taken in turn: shows their medians, and judges the median of their ratios if
        there is a goal. What slows the machine for a while slows both of a pair."""
        figures = f"{statistics.median(ours):.4g} / {statistics.median(bare):.4g} {unit}"
        ratio = statistics.median(one / other for one, other in zip(ours, bare, strict=True))
        if goal is None:
            return self.report(what, figures, ratio)
        judge = self.at_least if more_is_better else self.at_most
        judge(what, figures, ratio, goal, ratio)

    def holds(self, what, figures, goal, true):
        self._judge(what, figures, None, goal, true)

    def report(self, what, figures, ratio=None):
        """A row without a goal."""
        self._print(what, figures, self._ratio(ratio), "", "")

    def _judge(self, what, figures, ratio, goal, passed):
        if not passed:
            self.failed.append(what)
        slack = f" (×{self.slack:g})" if self.slack != 1 and goal[0] in "≤≥" else ""
        self._print(what, figures, self._ratio(ratio), goal + slack, "ok" if passed else "FAIL")

    @staticmethod
    def _ratio(ratio):
        return "" if ratio is None else f"{ratio:.3g}"

    @staticmethod
    def _print(*cells):
        padded = [cell.ljust(width) for cell, width in zip(cells, WIDTHS)]
        print("  ".join([*padded, *cells[len(padded):]]).rstrip(), flush=True)

