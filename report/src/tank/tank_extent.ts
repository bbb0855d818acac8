// How far a drawing of the tank reaches.
import type { Axis, Plan } from '../data/data';

export interface Extent {
  x: [number, number];
  y: [number, number];
}

export interface Place {
  x: number;
  y: number;
}

// The tank with all that stands in it. Where the site gives no wall, the drawing reaches a little
// beyond paddles, points and field.
export function tankExtent(plan: Plan, points: Place[], field?: { x: Axis; y: Axis }): Extent {
  const reach = (along: 'x' | 'y'): number[] => [
    ...plan.banks.flatMap((bank) => bank.paddles[along]),
    ...points.map((point) => point[along]),
    ...(field ? [field[along].from, field[along].from + field[along].step * (field[along].count - 1)] : []),
  ];
  return { x: span(plan.x, reach('x')), y: span(plan.y, reach('y')) };
}

function span(walls: [number | null, number | null], inside: number[]): [number, number] {
  let low = walls[0] ?? Infinity;
  let high = walls[1] ?? -Infinity;
  for (const at of inside) {
    if (!isFinite(at)) continue;
    low = Math.min(low, at);
    high = Math.max(high, at);
  }
  if (!(low <= high)) return [0, 1];
  const margin = Math.max(0.05 * (high - low), 0.25);
  if (walls[0] === null) low -= margin;
  if (walls[1] === null) high += margin;
  return high > low ? [low, high] : [low - 0.5, high + 0.5];
}

// The largest rectangle of the extent's shape within a box, and where a place in metres falls in
// it. y grows upwards. A narrow flume is drawn wider than it is, to separate paddles and points:
// `stretch` is the factor, 1 for none.
export interface Fit {
  x: number;
  y: number;
  width: number;
  height: number;
  stretch: number;
  perMetre: number; // along x
  place(x: number, y: number): [number, number];
  metres(px: number, py: number): [number, number];
}

export function fit(extent: Extent, box: { x: number; y: number; width: number; height: number }, least = 60): Fit {
  const spanX = extent.x[1] - extent.x[0];
  const spanY = extent.y[1] - extent.y[0];
  let perMetre = Math.min(box.width / spanX, box.height / spanY);
  let upward = perMetre;
  if (upward * spanY < least) upward = Math.min(least, box.height) / spanY;
  if (perMetre * spanX < least) perMetre = Math.min(least, box.width) / spanX;
  const width = perMetre * spanX;
  const height = upward * spanY;
  const x = box.x + (box.width - width) / 2;
  const y = box.y + (box.height - height) / 2;
  return {
    x, y, width, height, perMetre,
    stretch: upward / perMetre,
    place: (mx, my) => [x + (mx - extent.x[0]) * perMetre, y + height - (my - extent.y[0]) * upward],
    metres: (px, py) => [extent.x[0] + (px - x) / perMetre, extent.y[0] + (y + height - py) / upward],
  };
}
