// What the field shows, in words and as a table.
import { csvLine } from '../data/csv';
import type { Field } from '../data/data';
import { placeText, timeText } from '../data/words';
import { lengthText, plainNumber } from '../drawing/axis_ticks';
import type { FieldPicture } from './field_picture';

// What of the frames and points of the run the page keeps.
export function thinningText(field: Field): string {
  const { every, of } = field;
  const kept: string[] = [];
  if (every.time > 1) kept.push(`every ${ordinal(every.time)} frame`);
  if (every.x === every.y) {
    if (every.x > 1) kept.push(`every ${ordinal(every.x)} point`);
  } else {
    if (every.x > 1) kept.push(`every ${ordinal(every.x)} point along x`);
    if (every.y > 1) kept.push(`every ${ordinal(every.y)} point along y`);
  }
  const whole = `${of.frames} frames × ${of.x} × ${of.y} points`;
  const frames = field.eta.shape[0];
  const cut = frames * every.time < of.frames;
  const end = field.start + (frames - 1) / field.rate;
  const stretch = `${timeText(field.start, field.rate)} to ${timeText(end, field.rate)}`;
  if (cut) {
    const thinned = kept.length ? `, ${kept.join(' and ')}` : '';
    return `This page keeps the time from ${stretch} of ${plainNumber(of.frames / of.rate)} s${thinned}: ${frames} frames of ${whole} in the run.`;
  }
  const text = kept.length ? `${kept.join(' and ')} of ${whole} in the run` : `every point of all ${whole}`;
  return `This page keeps ${text}, ${stretch}.`;
}

export function fieldCaption(field: Field): string {
  const range = `from ${heightText(field.lowest)} to ${heightText(field.highest)}`;
  return `Water surface at ${plainNumber(field.rate)} frames per second, ${range} over all frames of the run. ${thinningText(field)}`;
}

// Above still water, with a real minus sign.
export const heightText = (metres: number): string => lengthText(metres).replace('-', '−');

// The frame at a time, for those who cannot see it.
export function frameText(picture: FieldPicture, time: number): string {
  const heights = picture.heights(time);
  let high = -1;
  let low = -1;
  for (let i = 0; i < heights.length; ++i) {
    if (high < 0 || !(heights[i] <= heights[high])) if (!Number.isNaN(heights[i])) high = i;
    if (low < 0 || !(heights[i] >= heights[low])) if (!Number.isNaN(heights[i])) low = i;
  }
  const at = timeText(picture.nearest(time), picture.rate);
  if (high < 0 || low < 0) return `Water surface at ${at}: no heights.`;
  return `Water surface at ${at}: highest ${placed(picture, heights, high)}, lowest ${placed(picture, heights, low)}.`;
}

function placed(picture: FieldPicture, heights: Float32Array, index: number): string {
  const x = picture.x.from + picture.x.step * (index % picture.x.count);
  const y = picture.y.from + picture.y.step * Math.floor(index / picture.x.count);
  return `${heightText(heights[index])} at ${placeText(x, y)}`;
}

export function frameCsv(picture: FieldPicture, time: number): string {
  const heights = picture.heights(time);
  const at = timeText(picture.nearest(time), picture.rate);
  let text = csvLine(['x [m]', 'y [m]', `eta [m] at ${at}`]);
  for (let i = 0; i < heights.length; ++i) {
    const x = picture.x.from + picture.x.step * (i % picture.x.count);
    const y = picture.y.from + picture.y.step * Math.floor(i / picture.x.count);
    text += csvLine([Number(x.toPrecision(9)), Number(y.toPrecision(9)), Number(heights[i].toPrecision(6))]);
  }
  return text;
}

function ordinal(number: number): string {
  const tens = Math.floor(number / 10) % 10;
  const ending = tens === 1 ? 'th' : (['th', 'st', 'nd', 'rd'][number % 10] ?? 'th');
  return `${number}${ending}`;
}
