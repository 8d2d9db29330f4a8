/** Colours of values: a scale that is read in print and by the colour-blind, from dark blue over green to yellow. */
type Colour = readonly [r: number, g: number, b: number];

const stops: readonly Colour[] = [
    [68, 57, 131], [49, 104, 142], [33, 145, 140], [53, 183, 121], [144, 215, 67], [253, 231, 37],
];

/** The colour of a share, 0 to 1. */
export function colourOf(share: number): Colour {
    const place = Math.min(Math.max(share, 0), 1) * (stops.length - 1);
    const k = Math.min(Math.floor(place), stops.length - 2);
    const mix = (i: 0 | 1 | 2): number => Math.round(stops[k]![i] + (place - k) * (stops[k + 1]![i] - stops[k]![i]));
    return [mix(0), mix(1), mix(2)];
}

/** Limits of the scale: all values but the hundredth at each end; logarithmic if they spread over two powers of ten. */
export function limits(values: Float32Array): { low: number; high: number; log: boolean } {
    const sorted = values.filter((value) => Number.isFinite(value)).filter((_, i) => i % 17 === 0).sort();
    const low = sorted[Math.floor(0.01 * sorted.length)] ?? 0;
    const high = sorted[Math.floor(0.99 * sorted.length)] ?? 1;
    return { low, high, log: low > 0 && high > 100 * low };
}

/** A picture of the values; what is not a number is clear. */
export function coloured(
    values: Float32Array,
    width: number,
    height: number,
    { low, high, log }: ReturnType<typeof limits>,
): HTMLCanvasElement {
    const canvas = document.createElement('canvas');
    [canvas.width, canvas.height] = [width, height];
    const context = canvas.getContext('2d')!;
    const image = context.createImageData(width, height);
    const span = log ? Math.log(high / low) : high - low;
    const table = Array.from({ length: 256 }, (_, i) => colourOf(i / 255));
    values.forEach((value, i) => {
        if (Number.isNaN(value)) return;
        const share = span > 0 ? (log ? Math.log(value / low) : value - low) / span : 0.5;
        const colour = table[Math.min(255, Math.max(0, Math.round(255 * share)))] ?? table[0]!;
        image.data.set(colour, 4 * i);
        image.data[4 * i + 3] = 150;
    });
    context.putImageData(image, 0, 0);
    return canvas;
}
