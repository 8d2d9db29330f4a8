/** The expansion line of a turbine test in the h-s chart of one formulation: dome, isobars of the points, sections. */
import type { Cell, Ktl, PairName, ReportTable, State } from 'ktl-steam';
import { axisBottom, axisLeft } from 'd3-axis';
import { scaleLinear } from 'd3-scale';
import { create } from 'd3-selection';
import { make, pathThrough } from './dom.js';
import { tick } from './format.js';
import { word } from './words.js';

type Formulation = '1967' | 'IF97';
type Place = readonly [s: number, h: number];
interface TestPoint {
    readonly p: number;
    readonly h: number;
    readonly s: number;
}

const numberOf = (cell: Cell | undefined): number => (Array.isArray(cell) ? (cell[1] as number) : NaN);

/** Pressure, enthalpy and entropy of each point after the formulation. */
function pointsOf(table: ReportTable, formulation: Formulation): Map<string, TestPoint> {
    const column = table.columns.indexOf(formulation);
    const found = new Map<string, Record<string, number>>();
    for (const row of table.rows) {
        const of = found.get(row[0] as string) ?? {};
        of[row[1] as string] = numberOf(row[column]);
        found.set(row[0] as string, of);
    }
    return new Map(
        [...found].map(([name, of]) => [name, { p: of['P'] ?? NaN, h: of['H'] ?? NaN, s: of['S'] ?? NaN }]),
    );
}

const placeOf = (state: State): Place => [state.properties.s, state.properties.h];

export function expansionPanel(
    ktl: Ktl,
    table: ReportTable,
    sections: ReportTable | undefined,
    formulation: Formulation,
): HTMLElement {
    const state = (pair: PairName, a: number, b: number): State =>
        formulation === 'IF97' ? ktl.stateIf97(pair, a, b) : ktl.state(pair, a, b);
    const points = pointsOf(table, formulation);
    // Sections alone are drawn: feedwater would squeeze them into a corner.
    const ends = (sections?.rows ?? [])
        .map((row) => [points.get(row[1] as string), points.get(row[2] as string)] as const)
        .filter((pair): pair is readonly [TestPoint, TestPoint] => pair.every((end) => end && Number.isFinite(end.h)));
    const shown = ends.length > 0 ? ends.flat() : [...points.values()].filter((point) => Number.isFinite(point.h));
    const caption = make('figcaption', {}, `${word('expansion')} ${formulation === '1967' ? 'IFC-67' : 'IF97'}`);
    if (shown.length === 0) return make('figure', {}, caption);

    const [width, height, left, bottom] = [480, 380, 48, 34];
    const spread = (values: readonly number[], margin: number): [number, number] => {
        const room = Math.max(margin * (Math.max(...values) - Math.min(...values)), 0.05);
        return [Math.min(...values) - room, Math.max(...values) + room];
    };
    const x = scaleLinear(spread(shown.map((point) => point.s), 0.25), [left, width - 8]).nice();
    const y = scaleLinear(spread(shown.map((point) => point.h), 0.1), [height - bottom, 8]).nice();
    const svg = create('svg').attr('viewBox', `0 0 ${width} ${height}`).attr('role', 'img');
    svg.attr('aria-label', `${caption.textContent}: h, kJ/kg; s, kJ/(kg K)`);
    const clip = `inside-${formulation}`;
    svg.append('clipPath').attr('id', clip).append('rect').attr('x', left).attr('y', 8)
        .attr('width', width - 8 - left).attr('height', height - bottom - 8);
    const inside = svg.append('g').attr('clip-path', `url(#${clip})`);
    const draw = (places: readonly Place[]): string => pathThrough(places.map(([s, h]) => [x(s), y(h)]));
    const steps = Array.from({ length: 81 }, (_, k) => k / 80);
    const dome = steps.map((k) => placeOf(state('tx', 0.01 + k * 373.9, 1)));
    inside.append('path').attr('class', 'dome').attr('d', draw(dome));
    const [low, high] = y.domain() as [number, number];
    for (const p of new Set(shown.map((point) => point.p)))
        inside.append('path').attr('class', 'isobar').attr('d', draw(steps.map((k) => placeOf(state('ph', p, low + k * (high - low))))));
    for (const [from, to] of ends) {
        const ideal = state('ps', to.p, from.s);
        inside.append('path').attr('class', 'ideal').attr('d', draw([[from.s, from.h], placeOf(ideal)]));
        inside.append('path').attr('class', 'process').attr('d', draw([[from.s, from.h], [to.s, to.h]]));
    }
    for (const point of shown)
        inside.append('circle').attr('class', 'pin').attr('cx', x(point.s)).attr('cy', y(point.h)).attr('r', 3.5);
    svg.append('g').attr('transform', `translate(0,${height - bottom})`).call(axisBottom(x).ticks(6).tickFormat((value) => tick(Number(value))));
    svg.append('g').attr('transform', `translate(${left},0)`).call(axisLeft(y).ticks(7).tickFormat((value) => tick(Number(value))));
    svg.append('text').attr('x', width - 8).attr('y', height - 2).attr('text-anchor', 'end').text('s, kJ/(kg K)');
    svg.append('text').attr('x', left + 6).attr('y', 18).text('h, kJ/kg');
    return make('figure', {}, caption, svg.node()!);
}
