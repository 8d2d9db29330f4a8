// What d3-zoom needs of d3-transition: to end transitions, of which there are none.
import { selection } from 'd3-selection';

export const interrupt = () => undefined;

selection.prototype.interrupt = function () {
    return this;
};
