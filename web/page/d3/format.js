// For the texts that d3-scale makes of ticks: the page has its own, in the language of the reader.
export const [format, formatPrefix, formatSpecifier, precisionFixed, precisionPrefix, precisionRound] = [];
