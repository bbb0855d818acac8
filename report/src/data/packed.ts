// Decodes the packed arrays of a page (data.ts).
import type { Packed } from './data';

// Counts, and how to turn them into numbers. NaN has the count -32768.
export class Counts {
  constructor(
    readonly counts: Int16Array,
    readonly shape: number[],
    readonly step: number,
  ) {}

  // The number at a flat index.
  at(index: number): number {
    const count = this.counts[index];
    return count === -32768 ? NaN : count * this.step;
  }

  // Numbers from one flat index up to another.
  slice(from: number, to: number): Float64Array {
    const numbers = new Float64Array(to - from);
    for (let i = from; i < to; ++i) numbers[i - from] = this.at(i);
    return numbers;
  }
}

export async function unpack(packed: Packed): Promise<Counts> {
  const bytes = await inflate(packed.data);
  const size = packed.shape.reduce((product, length) => product * length, 1);
  if (bytes.length !== 2 * size) {
    throw new Error(`packed array: ${bytes.length} bytes instead of ${2 * size}`);
  }
  const counts = new Int16Array(size);
  for (let i = 0; i < size; ++i) counts[i] = bytes[i] | (bytes[size + i] << 8);
  if (packed.differences >= 0) {
    // The stride of the axis, and how many values share one run along it.
    const inner = packed.shape.slice(packed.differences + 1).reduce((p, n) => p * n, 1);
    const block = inner * packed.shape[packed.differences];
    for (let start = 0; start < size; start += block) {
      for (let i = start + inner; i < start + block; ++i) counts[i] += counts[i - inner];
    }
  }
  return new Counts(counts, packed.shape, packed.step);
}

async function inflate(base64: string): Promise<Uint8Array> {
  const text = atob(base64);
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}
