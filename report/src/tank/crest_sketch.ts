// Crests of one wave over the profile of the tank: a sketch where the run made no wave field.
import type { Plan } from '../data/data';
import { depthAt } from './depth_at';
import { waveNumber } from './main_wave';

// More crests than this merge on the screen, and take long to draw.
const most = 1000;

export type Segment = [number, number, number, number]; // x, y to x, y in m

// Lines of equal phase of a wave that starts with `direction` (rad) at the first x of the tank and
// is refracted by the slope. Empty where no such wave exists.
export function crestLines(
  plan: Plan,
  reach: { x: [number, number]; y: [number, number] },
  wave: { period: number; direction: number; time: number },
): Segment[] {
  const columns = 160;
  const rows = 60;
  const step = (reach.x[1] - reach.x[0]) / columns;
  const start = waveNumber(wave.period, depthAt(plan, reach.x[0]));
  const ky = start * Math.sin(wave.direction);
  const sign = Math.cos(wave.direction) < 0 ? -1 : 1;
  // Waves from the start to each column, along x.
  const along = new Float64Array(columns + 1);
  for (let i = 1; i <= columns; ++i) {
    const k = waveNumber(wave.period, depthAt(plan, reach.x[0] + (i - 0.5) * step));
    along[i] = along[i - 1] + (sign * Math.sqrt(Math.max(0, k * k - ky * ky)) * step) / (2 * Math.PI);
  }
  if (!isFinite(along[columns]) || !isFinite(ky)) return [];
  const up = (reach.y[1] - reach.y[0]) / rows;
  if (Math.abs(along[columns]) + Math.abs((ky * up * rows) / (2 * Math.PI)) > most) return [];
  const phase = (i: number, j: number): number => along[i] + (ky * up * j) / (2 * Math.PI) - wave.time / wave.period;
  const lines: Segment[] = [];
  const corner = (i: number, j: number): Corner => [reach.x[0] + i * step, reach.y[0] + j * up, phase(i, j)];
  for (let j = 0; j < rows; ++j) {
    for (let i = 0; i < columns; ++i) {
      const [a, b, c, d] = [corner(i, j), corner(i + 1, j), corner(i + 1, j + 1), corner(i, j + 1)];
      crossTriangle(lines, [a, b, c]);
      crossTriangle(lines, [a, c, d]);
    }
  }
  return lines;
}

type Corner = [number, number, number]; // x, y, waves

// Adds the lines on which the number of waves is an integer.
function crossTriangle(lines: Segment[], corners: Corner[]): void {
  const waves = corners.map((corner) => corner[2]);
  for (let level = Math.ceil(Math.min(...waves)); level <= Math.max(...waves); ++level) {
    const ends: number[] = [];
    for (let i = 0; i < 3; ++i) {
      const [p, q] = [corners[i], corners[(i + 1) % 3]];
      if (p[2] < level === q[2] < level) continue;
      const part = (level - p[2]) / (q[2] - p[2]);
      ends.push(p[0] + part * (q[0] - p[0]), p[1] + part * (q[1] - p[1]));
    }
    if (ends.length === 4) lines.push(ends as Segment);
  }
}
