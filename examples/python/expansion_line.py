"""The expansion line of a condensing turbine with reheat, at several loads together.

    python expansion_line.py

Sections have isentropic efficiencies, the wet ones Baumann's factor. Pressures fall with the load, the temperatures of live and
reheated steam and the pressure of the condenser do not. Loads are one axis of the arrays, so each section is one call. All in kJ
for each kg of steam; no steam is extracted. Then points of the last section as a polytropic line, as a chart would show it.
"""

from __future__ import annotations

from typing import NamedTuple

import numpy as np

import ktl

LOADS = np.array([1.0, 0.75, 0.5])
LIVE, HOT, CONDENSER = 166.7, 36.0, 0.05  # bar at full load; the condenser's at any load
STEAM_T = 538.0  # degC, live and reheated


class Section(NamedTuple):
    name: str
    p: float  # bar behind it at full load
    efficiency: float
    wetness_factor: float = 0.0


BEFORE_REHEAT = [Section("HP", 40.0, 0.88)]
BEHIND_REHEAT = [
    Section("IP1", 12.0, 0.92), Section("IP2", 4.0, 0.92), Section("LP1", 0.8, 0.91, 1.0),
    Section("LP2", CONDENSER, 0.86, 1.0),
]


def expanded(section: Section, steam: ktl.State) -> ktl.Step:
    """The section's step at all loads."""
    p = section.p if section.p == CONDENSER else section.p * LOADS
    step = ktl.expand(steam, p, section.efficiency, wetness_factor=section.wetness_factor)
    if (step.status != ktl.Status.solved).any():
        raise SystemExit(f"{section.name}: {ktl.Status(step.status.max()).sentence}")
    end = step.end
    wetness = np.nan_to_num(end.wetness)
    print(f"{section.name:4} {end.p[0]:6.2f} bar {end.t[0]:8.3f} degC {end.h[0]:9.3f} kJ/kg, wetness {wetness[0]:6.4f}, "
          f"work {step.work[0]:8.3f}, lost {step.lost_work[0]:7.3f}")
    return step


def main() -> None:
    steps = [expanded(section, ktl.state(p=LIVE * LOADS, t=STEAM_T)) for section in BEFORE_REHEAT]
    steam = ktl.heat_to_t(ktl.throttle(steps[-1].end, HOT * LOADS).end, STEAM_T).end
    for section in BEHIND_REHEAT:
        steps.append(expanded(section, steam))
        steam = steps[-1].end
    work, lost = sum(step.work for step in steps), sum(step.lost_work for step in steps)
    print(f"work {work[0]:.3f} kJ/kg, lost {lost[0]:.3f} kJ/kg by the sections")

    print("load   work     lost    exhaust wetness")
    for load, w, l, y in zip(LOADS, work, lost, steam.wetness):
        print(f"{load:4.2f} {w:8.2f} {l:7.2f} {y:8.4f}")

    # The end of the last section may be anything that the efficiency allows; points between follow from a polytropic line.
    start, p = steps[-2].end[0], np.geomspace(0.8, CONDENSER, 5)
    points = ktl.expand_polytropic(start, p, 0.845, wetness_factor=1.0).end
    print("LP2 in the chart:", "  ".join(f"{s:.4f} {h:.1f}" for s, h in zip(points.s, points.h)))


if __name__ == "__main__":
    main()
