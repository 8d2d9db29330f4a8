/** The tab of charts: pointing, pinning, zooming, colours. */
import type { Chart, Ktl, Preset, PropertyName, State } from 'ktl-steam';
import { pointer, select } from 'd3-selection';
import { ChartView, margin, pixelsPerMm, type Place } from './chart_view.js';
import { element, make, pathThrough, settled } from './dom.js';
import { meaning, rowOf, shown, symbol, unitText } from './format.js';
import type { Jobs } from './jobs.js';
import { colourOf, coloured, limits } from './colours.js';
import { pairOf } from './paint.js';
import { Process } from './process.js';
import { sentence, word } from './words.js';

const painted: readonly PropertyName[] = ['t', 'p', 'rho', 'x', 'speed_of_sound', 'cp', 'isentropic_exponent', 'viscosity', 'conductivity'];
const listed: readonly PropertyName[] = ['p', 't', 'v', 'h', 's', 'x', 'speed_of_sound', 'cp', 'isentropic_exponent'];

export class ChartTab {
    readonly view: ChartView;
    private readonly process: Process;
    private readonly kind = element<HTMLSelectElement>('chart-kind');
    private readonly paintChoice = element<HTMLSelectElement>('chart-paint');
    private readonly lines: Jobs;
    private readonly painters: readonly Jobs[];
    private chart: Chart | null = null;
    private cross: Place | null = null;
    private state: State | null = null;
    /** Counts what was asked for, so that a late answer is not shown. */
    private asked = 0;
    private readonly refine = settled(180, () => void this.refined());

    constructor(
        private readonly ktl: Ktl,
        jobs: () => Jobs,
    ) {
        this.lines = jobs();
        this.painters = Array.from({ length: Math.min(4, Math.max(1, navigator.hardwareConcurrency || 1)) }, jobs);
        this.process = new Process(ktl, () => this.drawAbove());
        const frame = element('frame');
        this.view = new ChartView(frame, () => {
            this.drawAbove();
            this.refine();
        });
        this.listen(frame);
        new ResizeObserver(settled(150, () => this.appear())).observe(frame);
        this.speak();
    }

    private listen(frame: HTMLElement): void {
        frame.addEventListener('pointermove', (event) => this.pointTo(pointer(event, frame)));
        frame.addEventListener('pointerleave', () => this.pointTo(null));
        frame.addEventListener('click', (event) => {
            this.pointTo(pointer(event, frame));
            this.pin();
        });
        frame.addEventListener('keydown', (event) => this.key(event));
        this.kind.addEventListener('change', () => void this.open());
        this.paintChoice.addEventListener('change', () => void this.paint());
        element('zoom-in').addEventListener('click', () => this.view.zoomBy(1.6));
        element('zoom-out').addEventListener('click', () => this.view.zoomBy(1 / 1.6));
        element('zoom-all').addEventListener('click', () => this.view.zoomAll());
    }

    speak(): void {
        const before = this.paintChoice.value;
        this.paintChoice.replaceChildren(
            make('option', { value: '' }, word('paint_none')),
            ...painted.map((name) => make('option', { value: name }, meaning(rowOf(this.ktl, name)))),
        );
        this.paintChoice.value = before;
        this.process.show();
    }

    redraw(): void {
        this.view.recolour();
    }

    /** The tab is shown, or its size has changed. */
    appear(): void {
        const { width, height } = this.view;
        if (element('chart').hidden || !this.view.measure()) return;
        if (!this.chart || width !== this.view.width || height !== this.view.height) void this.open();
        else this.view.recolour();
    }

    private size(): readonly [number, number] {
        const { width, height } = this.view;
        return [(width - margin.left - margin.right) / pixelsPerMm, (height - margin.top - margin.bottom) / pixelsPerMm];
    }

    private async compute(window: Chart['window'] | null): Promise<Chart | null> {
        const mine = ++this.asked;
        const preset = this.kind.value as Preset;
        const chart = await this.lines.run({ kind: 'chart', preset, size: this.size(), window });
        return mine === this.asked && !('error' in chart) ? chart : null;
    }

    private async open(): Promise<void> {
        const chart = await this.compute(null);
        if (!chart) return;
        this.chart = chart;
        this.view.open(chart);
        this.pointTo(null);
        await this.paint();
    }

    /** Lines for the window that zooming has come to. */
    private async refined(): Promise<void> {
        if (!this.chart) return;
        const chart = await this.compute(this.view.window());
        if (!chart) return;
        this.view.take(chart);
        await this.paint();
    }

    /** Solves each pixel, in as many workers as there are processors, and colours it. */
    private async paint(): Promise<void> {
        const property = this.paintChoice.value as PropertyName | '';
        const legend = element('legend');
        legend.replaceChildren();
        if (!property || !this.chart) return this.view.setColours(null);
        const mine = this.asked;
        const window = this.view.window();
        const [width, height] = [this.view.width - margin.left - margin.right, this.view.height - margin.top - margin.bottom];
        const { x, y, xLog, yLog } = this.chart;
        legend.textContent = `${word('painting')} …`;
        const begin = performance.now();
        const share = Math.ceil(height / this.painters.length);
        const parts = await Promise.all(this.painters.map((jobs, k) =>
            jobs.run({ kind: 'paint', x, y, xLog, yLog, window, width, height, property,
                from: Math.min(height, k * share), to: Math.min(height, (k + 1) * share) })));
        const seconds = (performance.now() - begin) / 1000;
        if (mine !== this.asked || this.paintChoice.value !== property) return;
        const values = new Float32Array(width * height);
        parts.reduce((at, part) => (values.set(part, at), at + part.length), 0);
        const range = limits(values);
        this.view.setColours({
            bitmap: coloured(values, width, height, range), low: [window[0], window[2]], high: [window[1], window[3]],
        });
        this.showLegend(property, range);
        legend.dataset['solved'] = String(values.reduce((n, value) => n + (Number.isNaN(value) ? 0 : 1), 0));
        legend.dataset['seconds'] = seconds.toFixed(3);
    }

    private showLegend(property: PropertyName, range: ReturnType<typeof limits>): void {
        const scale = make('canvas', { width: '100', height: '1', 'aria-hidden': 'true' });
        const context = scale.getContext('2d')!;
        for (let i = 0; i < 100; ++i) {
            const [r, g, b] = colourOf(i / 99);
            context.fillStyle = `rgb(${r},${g},${b})`;
            context.fillRect(i, 0, 1, 1);
        }
        element('legend').replaceChildren(shown(range.low, 3), scale, `${shown(range.high, 3)} ${unitText(rowOf(this.ktl, property).unit)}`);
    }

    private pointTo(place: Place | null): void {
        this.cross = place && this.view.inside(place) ? place : null;
        this.state = null;
        if (this.cross && this.chart) {
            const [x, y] = this.view.valuesAt(this.cross);
            const { pair, xFirst } = pairOf(this.ktl, this.chart.x, this.chart.y);
            this.state = this.ktl.state(pair, xFirst ? x : y, xFirst ? y : x);
        }
        this.showState();
        this.drawAbove();
    }

    private showState(): void {
        const { state } = this;
        const solved = state?.status === 'solved';
        element('pointer-message').textContent = !state ? word('pointer_hint') : solved ? '' : sentence(state.sentence);
        element('pointer-state').replaceChildren(...listed.flatMap((name) => {
            const value = solved ? shown(state.properties[name], 6) : '';
            return [make('dt', {}, symbol(name)), make('dd', {}, value === '' ? '–' : value),
                make('dd', { class: 'unit' }, unitText(rowOf(this.ktl, name).unit))];
        }));
    }

    private pin(): void {
        if (this.state?.status === 'solved') this.process.pin(this.state);
    }

    private key(event: KeyboardEvent): void {
        const step = event.shiftKey ? 40 : 8;
        const moves: Readonly<Record<string, Place>> = {
            ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step],
        };
        const move = moves[event.key];
        const from = this.cross ?? [this.view.width / 2, this.view.height / 2];
        if (move) this.pointTo([from[0] + move[0], from[1] + move[1]]);
        else if (event.key === 'Enter') this.pin();
        else if (event.key === '+') this.view.zoomBy(1.6);
        else if (event.key === '-') this.view.zoomBy(1 / 1.6);
        else if (event.key === '0') this.view.zoomAll();
        else return;
        event.preventDefault();
    }

    /** Names of the axes, pointer, pins and the process between them. */
    private drawAbove(): void {
        const { view, chart } = this;
        view.svg.selectAll('.above').remove();
        if (!chart) return;
        const above = view.svg.append('g').attr('class', 'above');
        const name = (of: PropertyName): string => `${symbol(of)}, ${unitText(rowOf(this.ktl, of).unit)}`;
        above.append('text').attr('x', view.width - margin.right).attr('y', view.height - 6).attr('text-anchor', 'end').text(name(chart.x));
        above.append('text').attr('x', margin.left + 8).attr('y', margin.top + 12).text(name(chart.y));
        if (this.cross) {
            const [x, y] = this.cross;
            above.append('path').attr('class', 'cross')
                .attr('d', `M${margin.left},${y}H${view.width - margin.right}M${x},${margin.top}V${view.height - margin.bottom}`);
        }
        const at = (state: State): [number, number] => [view.x(state.properties[chart.x]), view.y(state.properties[chart.y])];
        const places = this.process.states.map(at);
        above.append('path').attr('class', 'process').attr('d', pathThrough(places));
        places.filter((place) => view.inside(place)).forEach(([x, y]) => {
            const number = places.findIndex((place) => place[0] === x && place[1] === y) + 1;
            above.append('circle').attr('class', 'pin').attr('cx', x).attr('cy', y).attr('r', 4.5);
            above.append('text').attr('class', 'number-of-pin').attr('x', x + 8).attr('y', y - 7).text(String(number));
        });
        select('#frame').attr('data-window', view.window().join(' '));
    }
}
