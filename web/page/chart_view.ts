/** The picture of a chart: lines on a canvas, axes and pins above it, zoom and pan. */
import type { Chart, PropertyName } from 'ktl-steam';
import { axisBottom, axisLeft, type Axis } from 'd3-axis';
import { scaleLinear, scaleLog, type NumberValue, type ScaleContinuousNumeric } from 'd3-scale';
import { select, type Selection } from 'd3-selection';
import { zoom, zoomIdentity, type ZoomBehavior, type ZoomTransform } from 'd3-zoom';
import { make } from './dom.js';
import { tick } from './format.js';

type Scale = ScaleContinuousNumeric<number, number>;
export type Place = readonly [x: number, y: number];

export const margin = { left: 54, right: 10, top: 10, bottom: 40 };
/** Pixels to a millimetre of the library's picture. */
export const pixelsPerMm = 4;

/** A picture of colours in the window that it was computed for. */
export interface Colours {
    readonly bitmap: HTMLCanvasElement;
    readonly low: Place;
    readonly high: Place;
}

/** The axes of a chart at rest: the window that it begins with. */
function scales(chart: Chart, width: number, height: number): { x: Scale; y: Scale } {
    const [left, right, bottom, top] = chart.window;
    const of = (log: boolean): Scale => (log ? scaleLog() : scaleLinear());
    return {
        x: of(chart.xLog).domain([left, right]).range([margin.left, width - margin.right]),
        y: of(chart.yLog).domain([bottom, top]).range([height - margin.bottom, margin.top]),
    };
}

const lineKinds: Readonly<Partial<Record<PropertyName, string>>> = {
    p: '--isobar', t: '--isotherm', v: '--isochore', h: '--isenthalp', s: '--isenthalp', u: '--isenthalp', x: '--quality',
};

export class ChartView {
    readonly canvas = make('canvas', { 'aria-hidden': 'true' });
    readonly svg: Selection<SVGSVGElement, unknown, null, undefined>;
    width = 0;
    height = 0;
    /** The axes as they are zoomed. */
    x: Scale = scaleLinear();
    y: Scale = scaleLinear();
    private base: { x: Scale; y: Scale } | null = null;
    private chart: Chart | null = null;
    private paths: { colour: string; width: number; dash: number[]; path: Path2D }[] = [];
    /** Widths of the labels, as far as they have been drawn. */
    private rooms: number[] = [];
    private colours: Colours | null = null;
    private palette: Record<string, string> = {};
    private frame = 0;
    private readonly behaviour: ZoomBehavior<HTMLElement, unknown>;

    constructor(
        private readonly place: HTMLElement,
        private readonly changed: () => void,
    ) {
        this.svg = select(place).append('svg');
        this.svg.attr('aria-hidden', 'true');
        place.prepend(this.canvas);
        this.behaviour = zoom<HTMLElement, unknown>().scaleExtent([1, 400]).on('zoom', (event: { transform: ZoomTransform }) => {
            this.move(event.transform);
            this.changed();
        });
        select(place).call(this.behaviour).on('dblclick.zoom', null);
    }

    /** Takes the size of the place; false if there is none yet. */
    measure(): boolean {
        const box = this.place.getBoundingClientRect();
        if (box.width < 50 || box.height < 50) return false;
        [this.width, this.height] = [Math.round(box.width), Math.round(box.height)];
        const density = Math.min(window.devicePixelRatio || 1, 2);
        [this.canvas.width, this.canvas.height] = [this.width * density, this.height * density];
        this.svg.attr('viewBox', `0 0 ${this.width} ${this.height}`);
        this.behaviour.extent([[margin.left, margin.top], [this.width - margin.right, this.height - margin.bottom]]);
        this.behaviour.translateExtent([[margin.left, margin.top], [this.width - margin.right, this.height - margin.bottom]]);
        return true;
    }

    /** Shows another kind of chart from its beginning. */
    open(chart: Chart): void {
        this.base = scales(chart, this.width, this.height);
        this.colours = null;
        select(this.place).call(this.behaviour.transform, zoomIdentity);
        this.take(chart);
    }

    /** Shows lines that were computed for the present window. */
    take(chart: Chart): void {
        this.chart = chart;
        this.rooms = [];
        this.recolour();
    }

    setColours(colours: Colours | null): void {
        this.colours = colours;
        this.draw();
    }

    zoomBy(factor: number): void {
        select(this.place).call(this.behaviour.scaleBy, factor);
    }

    zoomAll(): void {
        select(this.place).call(this.behaviour.transform, zoomIdentity);
    }

    private move(transform: ZoomTransform): void {
        if (!this.base) return;
        this.x = transform.rescaleX(this.base.x);
        this.y = transform.rescaleY(this.base.y);
        this.draw();
    }

    /** The lines in the colours of the theme. */
    recolour(): void {
        if (!this.chart) return;
        const style = getComputedStyle(document.documentElement);
        for (const name of ['--dome', '--ground', '--quiet', ...Object.values(lineKinds)])
            this.palette[name] = style.getPropertyValue(name);
        const groups = new Map<string, Path2D>();
        for (const line of this.chart.lines) {
            const key = line.dome ? '--dome' : (lineKinds[line.held] ?? '--quiet');
            const path = groups.get(key) ?? new Path2D();
            line.points.forEach((value, i, all) => {
                if (i % 2 === 0) i === 0 ? path.moveTo(value, all[1]!) : path.lineTo(value, all[i + 1]!);
            });
            groups.set(key, path);
        }
        this.paths = [...groups].map(([key, path]) => ({
            colour: this.palette[key]!, width: key === '--dome' ? 1.6 : 0.8, dash: key === '--quality' ? [3, 3] : [], path,
        }));
        this.draw();
    }

    /** Draws before the next frame. */
    draw(): void {
        if (this.frame) return;
        this.frame = requestAnimationFrame(() => {
            this.frame = 0;
            this.drawNow();
        });
    }

    private drawNow(): void {
        const context = this.canvas.getContext('2d');
        if (!context || !this.chart || !this.base) return;
        const density = this.canvas.width / this.width;
        const { left, right, top, bottom } = margin;
        context.setTransform(density, 0, 0, density, 0, 0);
        context.clearRect(0, 0, this.width, this.height);
        context.save();
        context.beginPath();
        context.rect(left, top, this.width - left - right, this.height - top - bottom);
        context.clip();
        if (this.colours) {
            const { bitmap, low, high } = this.colours;
            const [x0, x1, y0, y1] = [this.x(low[0]), this.x(high[0]), this.y(low[1]), this.y(high[1])];
            context.imageSmoothingEnabled = false;
            context.drawImage(bitmap, x0, y1, x1 - x0, y0 - y1);
        }
        this.drawLines(context);
        context.restore();
        this.drawAxes();
    }

    private drawLines(context: CanvasRenderingContext2D): void {
        const chart = this.chart!;
        const [x0, x1, y0, y1] = chart.window;
        const [width, height] = chart.size;
        const [across, up] = [(this.x(x1) - this.x(x0)) / width, (this.y(y1) - this.y(y0)) / height];
        const matrix = new DOMMatrix([across, 0, 0, up, this.x(x0), this.y(y0)]);
        for (const { colour, width: stroke, dash, path } of this.paths) {
            const moved = new Path2D();
            moved.addPath(path, matrix);
            context.strokeStyle = colour;
            context.lineWidth = stroke;
            context.setLineDash(dash);
            context.stroke(moved);
        }
        context.setLineDash([]);
        context.font = '10.5px system-ui, sans-serif';
        context.textAlign = 'center';
        context.textBaseline = 'middle';
        for (const [i, label] of chart.labels.entries()) {
            const room = (this.rooms[i] ??= context.measureText(label.text).width + 4);
            context.save();
            context.translate(this.x(x0) + across * label.x, this.y(y0) + up * label.y);
            context.rotate(Math.atan2(up * label.dy, across * label.dx));
            context.fillStyle = this.palette['--ground']!;
            context.globalAlpha = this.colours ? 0.6 : 1;
            context.fillRect(-room / 2, -6, room, 12);
            context.globalAlpha = 1;
            context.fillStyle = this.palette[lineKinds[label.held] ?? '--quiet']!;
            context.fillText(label.text, 0, 0);
            context.restore();
        }
    }

    private drawAxes(): void {
        const chart = this.chart!;
        const layer = (name: string): Selection<SVGGElement, unknown, null, undefined> => {
            const found = this.svg.select<SVGGElement>(`g.${name}`);
            return (found.empty() ? this.svg.insert('g', ':first-child').attr('class', name) : found) as never;
        };
        const few = (log: boolean, scale: Scale, pixels: number): number =>
            log ? Math.max(2, Math.min(8, Math.log10(scale.domain()[1]! / scale.domain()[0]!) * 3)) : pixels / 70;
        // A logarithmic axis names every value if it has few, otherwise the powers of ten.
        const named = (axis: Axis<NumberValue>, log: boolean, count: number): Axis<NumberValue> =>
            axis.ticks(count).tickFormat((value) => {
                const spread = log ? axis.scale<Scale>().domain() : [1, 1];
                const power = Math.abs(Math.log10(Number(value)) % 1);
                const wide = spread[1]! / spread[0]! > 200;
                return !wide || power < 1e-6 || power > 1 - 1e-6 ? tick(Number(value)) : '';
            });
        layer('x').attr('transform', `translate(0,${this.height - margin.bottom})`)
            .call(named(axisBottom(this.x), chart.xLog, few(chart.xLog, this.x, this.width)));
        layer('y').attr('transform', `translate(${margin.left},0)`)
            .call(named(axisLeft(this.y), chart.yLog, few(chart.yLog, this.y, this.height)));
    }

    /** The values under a place of the frame, in pixels. */
    valuesAt(place: Place): Place {
        return [this.x.invert(place[0]), this.y.invert(place[1])];
    }

    inside([x, y]: Place): boolean {
        return x >= margin.left && x <= this.width - margin.right && y >= margin.top && y <= this.height - margin.bottom;
    }

    window(): readonly [number, number, number, number] {
        const [x, y] = [this.x.domain(), this.y.domain()];
        return [x[0]!, x[1]!, y[0]!, y[1]!];
    }
}
