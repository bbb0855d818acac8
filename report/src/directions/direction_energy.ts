// Variance by frequency and direction, as the polar plot needs it.
import type { Directions } from '../data/data';

const shownShare = 0.995; // of the variance lies within the disc

export interface DirectionEnergy {
  f: number[]; // Hz, edges
  angle: number[]; // rad, edges
  density: number[][]; // mm2/(Hz deg), [f][angle]
  densest: number;
  made: number[]; // mm2 in each sector
  asked?: number[];
  total: number; // mm2
  shown: number; // rows within the disc
  beyond: number; // share of the variance outside of it
}

export function directionEnergy({ f, angle, variance, asked }: Directions): DirectionEnergy {
  const mm2 = (value: number | null): number => (value !== null && isFinite(value) ? Math.max(0, value) * 1e6 : 0);
  const cells = variance.map((row) => row.map(mm2));
  const rows = cells.map((row) => row.reduce((sum, value) => sum + value, 0));
  const total = rows.reduce((sum, value) => sum + value, 0);
  let shown = 0;
  let inside = 0;
  while (shown < rows.length && (inside < shownShare * total || shown === 0)) inside += rows[shown++];
  const density = cells.map((row, i) =>
    row.map((value, j) => value / ((f[i + 1] - f[i]) * (((angle[j + 1] - angle[j]) * 180) / Math.PI))),
  );
  return {
    f,
    angle,
    density,
    densest: density.reduce((most, row) => row.reduce((a, b) => Math.max(a, b), most), 0),
    made: angle.slice(1).map((_, j) => cells.reduce((sum, row) => sum + (row[j] ?? 0), 0)),
    asked: asked?.map(mm2),
    total,
    shown,
    beyond: total > 0 ? 1 - inside / total : 0,
  };
}

// The row or column with the value between its edges; -1 outside.
export function binOf(edges: number[], value: number): number {
  for (let i = 0; i + 1 < edges.length; ++i) {
    if (value >= edges[i] && value < edges[i + 1]) return i;
  }
  return -1;
}

// The sector of a direction, whole turns apart or not.
export function sectorOf(edges: number[], direction: number): number {
  const turn = 2 * Math.PI;
  const start = edges[0];
  return binOf(edges, start + ((((direction - start) % turn) + turn) % turn));
}
