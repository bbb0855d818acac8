// The depth of the tank.
import type { Plan } from '../data/data';

// m, at x. Before the first and after the last place of the profile the depth stays the same.
export function depthAt({ profile }: Plan, x: number): number {
  const { x: places, depth } = profile;
  if (places.length === 0) return NaN;
  if (x <= places[0]) return depth[0];
  for (let i = 1; i < places.length; ++i) {
    if (x > places[i]) continue;
    const span = places[i] - places[i - 1];
    return span > 0 ? depth[i - 1] + ((x - places[i - 1]) / span) * (depth[i] - depth[i - 1]) : depth[i];
  }
  return depth[depth.length - 1];
}
