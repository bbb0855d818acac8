// What a line of a chart shows at a place of the x axis.
import type { Line } from './chart_types';

// NaN where the line shows nothing. Joined samples are read between them, as they are drawn; a
// sample that stands alone, or an end of the line, as far as `reach` from it.
export function valueAt(line: Line, x: ArrayLike<number>, at: number, reach: number): number {
  const places = line.x ?? x;
  const next = firstFrom(places, at);
  const last = places.length - 1;
  if (last < 0) return NaN;
  const inside = next > 0 && next <= last;
  const nearest = inside && at - places[next - 1] < places[next] - at ? next - 1 : Math.min(next, last);
  if (inside && ['line', 'area'].includes(line.kind ?? 'line')) {
    const part = (at - places[next - 1]) / (places[next] - places[next - 1]);
    const between = (1 - part) * line.values[next - 1] + part * line.values[next];
    if (!Number.isNaN(between)) return between;
  }
  const wide = line.kind === 'bars' ? Math.max(reach, 0.5) : reach; // bars stand at whole numbers
  return Math.abs(at - places[nearest]) <= wide ? line.values[nearest] : NaN;
}

// The index of the first place that is not below `at`; their number if there is none.
function firstFrom(places: ArrayLike<number>, at: number): number {
  let low = 0;
  let high = places.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if (places[middle] < at) low = middle + 1;
    else high = middle;
  }
  return low;
}
