#!/usr/bin/env bash
# A Slurm array job that crops a batch on as many nodes as the array has
# tasks. Every task takes its shard from SLURM_ARRAY_TASK_ID and
# SLURM_ARRAY_TASK_COUNT (vellumo-cli --shard auto) and records what it has
# done in a manifest of its own; a task that is killed, preempted or
# requeued starts again where it stopped (--resume). A task cancelled with
# scancel is run again by submitting the whole array again: the finished
# tasks find their manifests complete and end at once. Not alone: an array
# of one task (--array=5) is shard 0 of 1 to --shard auto, the whole list.
# Afterwards:
#   vellumo-cli verify --manifest "$BATCH"/manifests/*.jsonl --inputs "$BATCH"/list.txt
#
# The batch folder is shared by every node, at the same path:
#   list.txt     the images, one path per line
#   out/         the crops
#   manifests/   one manifest per task
#
#   sbatch docs/scale-out/slurm-array.sh
#SBATCH --job-name=vellumo-crop
#SBATCH --array=0-31
#SBATCH --cpus-per-task=8
#SBATCH --mem=4G
#SBATCH --time=24:00:00
#SBATCH --requeue
#SBATCH --output=slurm-%A_%a.log
set -euo pipefail
batch=${BATCH:-/shared/batch}
mkdir -p "$batch/out" "$batch/manifests"
exec vellumo-cli --inputs "$batch/list.txt" --shard auto --jobs "${SLURM_CPUS_PER_TASK:-1}" \
    --auto 4:5 --format JPG --quality 85 --quiet \
    --output "$batch/out" --manifest "$batch/manifests/$SLURM_ARRAY_TASK_ID.jsonl" --resume
