/** A property over the pixels of a chart, each of them solved. */
import type { Ktl, PairName, PropertyName } from 'ktl-steam';
import type { PaintJob } from './jobs.js';

type Axes = Pick<PaintJob, 'x' | 'y' | 'xLog' | 'yLog' | 'window'>;

/** The pair of the axes of a chart, and whether the horizontal one is its first value. */
export function pairOf(ktl: Ktl, x: PropertyName, y: PropertyName): { pair: PairName; xFirst: boolean } {
    const straight = ktl.lists.pairs.find((one) => one.first === x && one.second === y);
    const turned = ktl.lists.pairs.find((one) => one.first === y && one.second === x);
    return straight ? { pair: straight.name, xFirst: true } : { pair: turned!.name, xFirst: false };
}

/** The position of a value along an axis, 0 to 1 within the window. */
export const place = (value: number, low: number, high: number, log: boolean): number =>
    log ? Math.log(value / low) / Math.log(high / low) : (value - low) / (high - low);

/** The value at a position. */
export const valueAt = (share: number, low: number, high: number, log: boolean): number =>
    log ? low * Math.pow(high / low, share) : low + share * (high - low);

/** The limits of the range as a closed line, in shares of the window: outside it there is no state, and none is searched for. */
export function outline(ktl: Ktl, axes: Axes): Float64Array {
    const n = 400;
    const [tLow, tHigh, pLow, pHigh] = [0.01, 800, 0.0061125, 1000];
    const p = new Float64Array(4 * n);
    const t = new Float64Array(4 * n);
    for (let i = 0; i < n; ++i) {
        const share = i / (n - 1);
        [p[i], t[i]] = [valueAt(share, pLow, pHigh, true), tLow];
        [p[n + i], t[n + i]] = [pHigh, valueAt(share, tLow, tHigh, false)];
        [p[2 * n + i], t[2 * n + i]] = [valueAt(share, pHigh, pLow, true), tHigh];
        [p[3 * n + i], t[3 * n + i]] = [pLow, valueAt(share, tHigh, tLow + 0.001, false)];
    }
    const { columns } = ktl.batch('pt', p, t, [axes.x, axes.y]);
    const [left, right, bottom, top] = axes.window;
    const points: number[] = [];
    for (let i = 0; i < p.length; ++i) {
        const x = place(columns[axes.x]![i]!, left, right, axes.xLog);
        const y = place(columns[axes.y]![i]!, bottom, top, axes.yLog);
        if (Number.isFinite(x) && Number.isFinite(y)) points.push(x, y);
    }
    return Float64Array.from(points);
}

/** Where a horizontal line crosses the outline, in order. */
function crossings(line: Float64Array, y: number): number[] {
    const found: number[] = [];
    for (let i = 0; i < line.length; i += 2) {
        const j = (i + 2) % line.length;
        const [y0, y1] = [line[i + 1]!, line[j + 1]!];
        if (y0 <= y !== y1 <= y) found.push(line[i]! + ((y - y0) / (y1 - y0)) * (line[j]! - line[i]!));
    }
    return found.sort((a, b) => a - b);
}

/** The property at the middle of each pixel, row by row from the top; NaN if there is no state. */
export function paint(ktl: Ktl, job: PaintJob): Float32Array {
    const { width, height, from, to } = job;
    const [left, right, bottom, top] = job.window;
    const { pair, xFirst } = pairOf(ktl, job.x, job.y);
    const border = outline(ktl, job);
    const out = new Float32Array((to - from) * width).fill(NaN);
    const places = new Int32Array(out.length);
    const x = new Float64Array(out.length);
    const y = new Float64Array(out.length);
    let count = 0;
    for (let row = from; row < to; ++row) {
        const share = 1 - (row + 0.5) / height;
        const value = valueAt(share, bottom, top, job.yLog);
        const cuts = crossings(border, share);
        for (let k = 0; k + 1 < cuts.length; k += 2) {
            const first = Math.max(0, Math.ceil(cuts[k]! * width - 0.5));
            const last = Math.min(width - 1, Math.floor(cuts[k + 1]! * width - 0.5));
            for (let column = first; column <= last; ++column) {
                places[count] = (row - from) * width + column;
                x[count] = valueAt((column + 0.5) / width, left, right, job.xLog);
                y[count++] = value;
            }
        }
    }
    const [xs, ys] = [x.subarray(0, count), y.subarray(0, count)];
    const { columns } = ktl.batch(pair, xFirst ? xs : ys, xFirst ? ys : xs, [job.property]);
    const values = columns[job.property]!;
    for (let i = 0; i < count; ++i) out[places[i]!] = values[i]!;
    return out;
}
