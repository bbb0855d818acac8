// Where the bottom of the tank has a round depth. The depth depends on x alone, so each contour is
// a line across the tank.
import type { Plan } from '../data/data';
import { ticks } from '../drawing/axis_ticks';

export interface Contour {
  x: number; // m
  depth: number; // m
  text: string; // "1.6 m"
}

export function depthContours({ profile }: Plan, most = 6): Contour[] {
  const deepest = profile.depth.reduce((a, b) => Math.max(a, b), -Infinity);
  const lowest = profile.depth.reduce((a, b) => Math.min(a, b), Infinity);
  // A difference that paddles and waves would not notice is a flat bottom.
  if (!(deepest - lowest > 1e-3 * deepest)) return [];
  const levels = ticks(lowest, deepest, most);
  const contours: Contour[] = [];
  for (const depth of levels.values) {
    for (let i = 1; i < profile.x.length; ++i) {
      const before = profile.depth[i - 1] - depth;
      const after = profile.depth[i] - depth;
      if (before < -1e-9 === after < -1e-9) continue;
      const part = before / (before - after);
      const x = profile.x[i - 1] + part * (profile.x[i] - profile.x[i - 1]);
      contours.push({ x, depth, text: `${levels.label(depth)} m` });
    }
  }
  return contours.sort((a, b) => a.x - b.x);
}
