// What the plan shows, in words and numbers.
import type { Plan } from '../data/data';
import { counted, timeText } from '../data/words';
import { degreesText, turnBetween } from '../directions/angles';
import { lengthText, minus, plainNumber } from '../drawing/axis_ticks';
import { shortText } from '../drawing/sharp_canvas';
import { depthAt } from './depth_at';
import { waveNumber, type MainWave } from './main_wave';
import type { PlanContent } from './plan_drawing';
import type { Place } from './tank_extent';

// `stretch` is how much longer a metre along y is drawn than one along x.
export function planCaption({ plan, extent, picture, wave, view, summary }: PlanContent, stretch: number): string {
  const sentences = [tankText(plan, extent)];
  if (picture) {
    sentences.push(`Waves at ${timeText(picture.nearest(view.time), picture.rate)}.`);
  } else if (wave.period && wave.direction !== undefined) {
    sentences.push(sketchText(plan, wave.period));
  }
  if (wave.direction !== undefined) sentences.push(arrowText(wave));
  if (summary.points.length > 0) sentences.push(pointsText(summary.points));
  if (stretch > 1.01) sentences.push(`y is drawn ${plainNumber(stretch, 2)} times as large as x.`);
  return sentences.join(' ');
}

// x, y, depth and height at a place, with units.
export function placeText({ plan, picture, view }: PlanContent, { x, y }: Place): string {
  const values = [minus(`x ${x.toFixed(2)} m`), minus(`y ${y.toFixed(2)} m`)];
  const depth = depthAt(plan, x);
  if (isFinite(depth)) values.push(`depth ${lengthText(depth)}`);
  if (picture) {
    const time = picture.nearest(view.time);
    const height = picture.heightAt(x, y, time);
    const text = isFinite(height) ? `${height < 0 ? '−' : '+'}${(Math.abs(height) * 1000).toFixed(0)} mm` : 'not computed here';
    values.push(`height ${text} at ${timeText(time, picture.rate)}`);
  }
  return values.join('   ');
}

function tankText({ profile, banks }: Plan, extent: PlanContent['extent']): string {
  const length = plainNumber(extent.x[1] - extent.x[0], 3);
  const width = plainNumber(extent.y[1] - extent.y[0], 3);
  const parts = [`${length} m by ${width} m`];
  if (profile.depth.length > 0) {
    const least = Math.min(...profile.depth);
    const most = Math.max(...profile.depth);
    parts.push(most - least > 1e-3 * most ? `${plainNumber(most)} m to ${plainNumber(least, 2)} m deep` : `${plainNumber(most)} m deep`);
  }
  for (const bank of banks.slice(0, 4)) {
    parts.push(`${counted(bank.paddles.x.length, bank.machine)} of ${lengthText(bank.paddle_width)}`);
  }
  if (banks.length > 4) parts.push(`and ${banks.length - 4} more banks`);
  return `${parts.join(', ')}.`;
}

function pointsText(points: { name: string; x: number; y: number }[]): string {
  const named = points.slice(0, 3).map(({ name, x, y }) => `${shortText(name, 24)} (${plainNumber(x)} m, ${plainNumber(y)} m)`);
  const more = points.length > 3 ? ` and ${points.length - 3} more` : '';
  return `${points.length === 1 ? 'Cross' : 'Crosses'}: ${named.join(', ')}${more}.`;
}

function sketchText(plan: Plan, period: number): string {
  const length = (2 * Math.PI) / waveNumber(period, depthAt(plan, plan.x[0]));
  const long = isFinite(length) ? `, ${plainNumber(length, 2)} m long at x = ${plainNumber(plan.x[0], 2)} m` : '';
  return `The run has no wave field. Blue lines are a sketch only: crests of one wave of the peak period (${plainNumber(period)} s${long}).`;
}

function arrowText({ direction, asked }: MainWave): string {
  const dashed = asked !== undefined && Math.abs(turnBetween(asked, direction!)) > 0.03 ? `, asked ${degreesText(asked)} (dashed)` : '';
  return `Arrow: mean direction ${degreesText(direction!)}${dashed}, where 0° is along x and 90° along y.`;
}
