// What d3-scale and d3-zoom call of d3-interpolate: numbers. The package as a whole brings colours and transforms along.
export const interpolateNumber = (a, b) => (share) => a * (1 - share) + b * share;
export const interpolate = interpolateNumber;
export const interpolateRound = (a, b) => (share) => Math.round(a * (1 - share) + b * share);
/** For transitions of the view alone, of which there are none. */
export const interpolateZoom = undefined;
/** For scales of colours, which are not used. */
export const piecewise = undefined;
